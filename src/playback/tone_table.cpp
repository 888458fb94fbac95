#include "playback/tone_table.h"

#include <limits>

namespace trillomat {

std::optional<int32_t> BaseFrequency(std::string_view note) {
  const int index = ToneIndex(note);
  if (index < 0) return std::nullopt;
  return kBaseFrequencies.at(static_cast<size_t>(index));
}

std::optional<int32_t> ToneFrequency(int32_t base, int16_t octave) {
  if (base == 0) return 0;
  int64_t hertz = base;
  for (int i = 0; i < octave; ++i) {
    hertz *= 2;
    if (hertz > std::numeric_limits<int32_t>::max() || hertz < std::numeric_limits<int32_t>::min()) {
      return std::nullopt;
    }
  }
  return static_cast<int32_t>(hertz);
}

}  // namespace trillomat
