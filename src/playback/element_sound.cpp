#include "playback/element_sound.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/song.h"
#include "playback/tone_table.h"

namespace trillomat {

int32_t BeatLength(int32_t bpm) {
  if (bpm == 0) bpm = kDefaultTempo;
  // No tempo but 0 gives more than a minute, so the result always fits.
  return static_cast<int32_t>(std::nearbyint(1000 / (bpm / 60.0)));
}

int32_t ElementLength(const Element& element, int32_t bpm) {
  if (!IsPause(element) && ElementFrequency(element) == 0) return 0;
  const double milliseconds = double{element.duration} * double{element.extra} * BeatLength(bpm);
  return std::max(RoundToInt32(milliseconds).value_or(0), 0);
}

int32_t ElementFrequency(const Element& element) {
  if (IsPause(element)) return 0;
  return ToneFrequency(BaseFrequency(element.Note()).value_or(0), element.octave).value_or(0);
}

}  // namespace trillomat
