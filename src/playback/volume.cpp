#include "playback/volume.h"

#include <algorithm>
#include <cmath>

#include "playback/wave_synthesis.h"

namespace trillomat {

double VolumeGain(int percent) {
  constexpr double kLoudnessOfAmplitude = 0.6;
  const double loudness = std::clamp(percent, 0, kFullVolume) / static_cast<double>(kFullVolume);
  return std::pow(loudness, 1 / kLoudnessOfAmplitude);
}

void ScaleImage(std::span<uint8_t> image, double gain) {
  for (size_t at = kWaveHeaderSize; at + 1 < image.size(); at += 2) {
    const auto sample = static_cast<int16_t>(image[at] | image[at + 1] << 8);
    const auto scaled = static_cast<uint16_t>(std::lround(sample * gain));
    image[at] = static_cast<uint8_t>(scaled);
    image[at + 1] = static_cast<uint8_t>(scaled >> 8);
  }
}

}  // namespace trillomat
