#include "composer/transpose.h"

#include <string>

#include "core/number_text.h"

namespace trillomat {

std::optional<ElementList> Transposed(const ElementList& elements, int16_t octaves, FormatMode mode,
                                      Log& log) {
  ElementList moved = elements;
  if (moved.empty()) return moved;
  log.WriteLog("Change Scale started", 1);
  const ModeLimits& limits = LimitsOf(mode);
  int octave = 0;
  for (size_t i = 0; i < moved.size(); ++i) {
    if (moved[i].octave != kNoOctave) octave = moved[i].octave + octaves;
    if (!limits.HasOctave(octave)) {
      log.WriteLog("All notes must be within scale" + SignedText(limits.lowestOctave) + "-" +
                       DecimalText(limits.highestOctave) + ", currently note" +
                       SignedText(static_cast<int64_t>(i) + 1) + " is incorrect",
                   2);
      return std::nullopt;
    }
    moved[i].octave = static_cast<int16_t>(octave);
  }
  return moved;
}

}  // namespace trillomat
