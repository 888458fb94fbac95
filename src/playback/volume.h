// How loud the program's own output is: a percentage for the ear, a factor for the samples.
//
// The ear takes a tone for half as loud when it is 10 dB weaker (Stevens' power law: loudness grows with the
// amplitude to the power of 0.6), so half of the slider is that: 100 % 0 dB, 50 % -10 dB, 25 % -20 dB.
#pragma once

#include <cstdint>
#include <span>

namespace trillomat {

inline constexpr int kFullVolume = 100;

/// What samples are multiplied with at a volume of `percent`: 0 for 0 and less, 1 for 100 and more.
double VolumeGain(int percent);

/// Makes a tone's image, as ToneImage makes them by default, weaker; a gain of 1 leaves it as it is.
void ScaleImage(std::span<uint8_t> image, double gain);

}  // namespace trillomat
