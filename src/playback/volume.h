// How loud the program's own output is: a percentage for the ear, a factor for the samples.
//
// To the ear a tone is half as loud when it is 10 dB weaker (Stevens' power law: loudness grows with the
// amplitude to the power of 0.6), so each half of the slider is that much: 100 % is 0 dB, 50 % -10 dB, 25 %
// -20 dB.
#pragma once

#include <cstdint>
#include <span>

namespace trillomat {

inline constexpr int kFullVolume = 100;

/// The factor for samples at a volume of `percent`: 0 for 0 and less, 1 for 100 and more.
double VolumeGain(int percent);

/// Multiplies the samples of an image that ToneImage has made with its default format.
void ScaleImage(std::span<uint8_t> image, double gain);

}  // namespace trillomat
