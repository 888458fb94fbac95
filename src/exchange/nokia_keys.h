// The keys of the Nokia Composer: 1 to 7 are c to b, "#" raises by a semitone, "*" steps through the octaves
// 3 to 6, "9" makes longer, "8" shorter, and a key that is held makes dotted.
#pragma once

#include "exchange/key_press_run.h"

namespace trillomat {

class NokiaKeys : public PhoneKeys {
 public:
  explicit NokiaKeys(Workspace& ws) : ws_(ws) {}
  void Press(const MelodyNote& note, std::string& keyText) override;

 private:
  void PressPause(const MelodyNote& note, std::string& keyText);
  void PressTone(const MelodyNote& note, std::string& keyText);

  Workspace& ws_;
  SteppingComposer composer_{
      {.octaveUp = " *", .longer = " 9", .shorter = " 8", .lowestOctave = 3, .highestOctave = 6}};
};

}  // namespace trillomat
