// Synthesises one tone as a RIFF/WAVE image in memory: a whole number of periods of a sine, so that
// the image loops without an audible seam.
//
//   byte  0 "RIFF", size of what follows     12 "fmt ", 16, 1 (PCM), channels
//         8 "WAVE"                           24 sample rate, byte rate, block align, bits
//                                            36 "data", data size, samples from byte 44
//
// All numbers are little-endian. The layout is that of the published PCM WAVE format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace trillomat {

inline constexpr int32_t kSampleRate = 44100;
inline constexpr size_t kWaveHeaderSize = 44;

/// The sample format; by default that of all tones of the program.
struct WaveFormat {
  int32_t sampleRate = kSampleRate;
  int16_t bits = 16;     ///< 8 (unsigned, around 127) or 16 (signed)
  int16_t channels = 1;  ///< interleaved; even channels have the left level, odd ones the right
  double leftLevel = 0.5;
  double rightLevel = 0.5;
};

/// The header of a file with `dataSize` bytes of samples.
std::array<uint8_t, kWaveHeaderSize> WaveHeader(const WaveFormat& format, uint32_t dataSize);

/// The image of a tone of `hertz`: 10 periods, 100 above 1000 Hz. Where the sampled sine never shows its
/// periods (at half the sample rate and its multiples) the image ends after a second. No samples below 1 Hz.
std::vector<uint8_t> ToneImage(double hertz, const WaveFormat& format = {});

}  // namespace trillomat
