// The keys of the Nokia Composer: 1 to 7 are c to b, "#" raises by a semitone, "*" steps through the octaves
// 3 to 6, "9" makes longer, "8" shorter, and a key that is held makes dotted.
#pragma once

#include "exchange/stepping_keys.h"

namespace trillomat {

class NokiaKeys : public SteppingKeys {
 public:
  NokiaKeys(const MelodyToType& melody, Log& log);

 private:
  ElementKeys PauseKeys(const Element& element, Log& log) const override;
  ElementKeys CommandKeys(std::string_view command) const override;
  ElementKeys ToneKeys(const Element& element, Log& log) const override;
};

}  // namespace trillomat
