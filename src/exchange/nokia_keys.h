// The keys of the Nokia Composer: 1 to 7 are c to b, "#" raises by a semitone, "*" steps through the octaves
// 3 to 6, "9" makes longer, "8" shorter, and a key that is held makes dotted.
#pragma once

#include "exchange/key_press_run.h"

namespace trillomat {

class NokiaKeys : public PhoneKeys {
 public:
  explicit NokiaKeys(Log& log) : log_(log) {}
  Loss Press(const Element& element, std::string& keyText) override;

 private:
  Loss PressPause(const Element& element, std::string& keyText);
  Loss PressTone(const Element& element, std::string& keyText);

  Log& log_;
  SteppingComposer composer_{
      {.octaveUp = " *", .longer = " 9", .shorter = " 8", .lowestOctave = 3, .highestOctave = 6}};
};

}  // namespace trillomat
