#include "core/tone.h"

#include "core/ascii.h"

namespace trillomat {

int ToneIndex(std::string_view note) {
  for (size_t i = 0; i < kTones.size(); ++i) {
    if (EqualNoCase(kTones.at(i), note)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace trillomat
