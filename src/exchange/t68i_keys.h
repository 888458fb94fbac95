// The keys of the T68i's composer: 1 to 7 are c to b, "#" steps through the accidentals, "0" through the
// octaves 4 to 7, "9" makes longer, "8" shorter; dots and the melody's commands are entered in the options
// menu.
#pragma once

#include "exchange/key_press_run.h"

namespace trillomat {

class T68iKeys : public PhoneKeys {
 public:
  explicit T68iKeys(Log& log) : log_(log) {}
  Loss Press(const Element& element, std::string& keyText) override;

 private:
  Loss PressTone(const Element& element, std::string& keyText);
  Loss PressLength(const Element& element, std::string& keyText);

  Log& log_;
  SteppingComposer composer_{
      {.octaveUp = "0", .longer = "9", .shorter = "8", .lowestOctave = 4, .highestOctave = 7}};
};

}  // namespace trillomat
