// The tempo in beats per minute as the length of one quarter-note beat.
#pragma once

#include <cstdint>

#include "core/song_header.h"

namespace trillomat {

/// The tempo that replaces a tempo of 0.
inline constexpr int32_t kDefaultTempo = 100;

/// Milliseconds of a beat at `tempo` beats per minute, rounded half to even: 600 at 100. A tempo of 0
/// counts as 100; a negative one gives a negative length, which is played as 0.
int32_t BeatDuration(int32_t tempo);

/// `lBeatDuration` of the header's tempo; a tempo of 0 is replaced by 100 in the header, too.
int32_t UpdateBeatLength(SongHeader& header);

}  // namespace trillomat
