// The frequencies of the tones.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/tone.h"

namespace trillomat {

/// Hertz of each spelling in internal octave 0, rounded to whole hertz.
inline constexpr ToneTable<int32_t> kBaseFrequencies{33, 35, 35, 37, 39, 39, 41, 44, 46,
                                                     46, 49, 52, 52, 55, 58, 58, 62};

/// Hertz of a note of either case in internal octave 0; nothing for an unknown tone.
std::optional<int32_t> BaseFrequency(std::string_view note);

/// Hertz of a base frequency in an internal octave: doubled `octave` times, so that the rounding of
/// the base is kept (octave 3: "a" 440, "b" 496). An octave of 0 or less leaves the base as it is;
/// nothing when 32 bits do not hold the result.
std::optional<int32_t> ToneFrequency(int32_t base, int16_t octave);

}  // namespace trillomat
