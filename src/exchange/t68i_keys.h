// The keys of the T68i's composer: 1 to 7 are c to b, "#" steps through the accidentals, "0" through the
// octaves 4 to 7, "9" makes longer, "8" shorter; dots and the melody's commands are entered in the options
// menu.
#pragma once

#include "exchange/stepping_keys.h"

namespace trillomat {

class T68iKeys : public SteppingKeys {
 public:
  T68iKeys(const MelodyToType& melody, Log& log);

 private:
  ElementKeys PauseKeys(const Element& element, Log& log) const override;
  ElementKeys CommandKeys(std::string_view command) const override;
  ElementKeys ToneKeys(const Element& element, Log& log) const override;
};

}  // namespace trillomat
