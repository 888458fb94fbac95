#include "composer/change_scale.h"

#include "core/number_text.h"

namespace trillomat {

bool ChangeScale(MelodyList& notes, int16_t octaves, FormatMode mode, Log& log) {
  if (notes.empty()) return false;
  MelodyList moved = notes;
  log.WriteLog("Change Scale started", 1);
  const ModeLimits& limits = LimitsOf(mode);
  int octave = 0;
  for (size_t i = 0; i < moved.size(); ++i) {
    if (moved[i].Octave != kNoOctave) octave = moved[i].Octave + octaves;
    if (!limits.HasOctave(octave)) {
      log.WriteLog("All notes must be within scale" + SignedText(limits.iOctaveMin) + "-" +
                       DecimalText(limits.iOctaveMax) + ", currently note" +
                       SignedText(static_cast<int64_t>(i) + 1) + " is incorrect",
                   2);
      return false;
    }
    moved[i].Octave = static_cast<int16_t>(octave);
  }
  notes = std::move(moved);
  return true;
}

}  // namespace trillomat
