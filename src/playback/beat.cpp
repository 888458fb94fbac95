#include "playback/beat.h"

#include <cmath>

namespace trillomat {

int32_t BeatDuration(int32_t tempo) {
  if (tempo == 0) tempo = kDefaultTempo;
  // No tempo but 0 gives more than a minute, so the result always fits.
  return static_cast<int32_t>(std::nearbyint(1000 / (tempo / 60.0)));
}

int32_t UpdateBeatLength(SongHeader& header) {
  if (header.BPM == 0) header.BPM = kDefaultTempo;
  return BeatDuration(header.BPM);
}

}  // namespace trillomat
