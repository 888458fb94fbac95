#include "playback/wave_synthesis.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>

namespace trillomat {
namespace {

// Writes the low `size` bytes of `value`, least significant first.
void PutNumber(std::span<uint8_t> out, size_t at, uint32_t value, size_t size) {
  for (size_t i = 0; i < size; ++i) out[at + i] = static_cast<uint8_t>(value >> (8 * i));
}

void PutText(std::span<uint8_t> out, size_t at, std::string_view text) {
  std::copy(text.begin(), text.end(), out.begin() + static_cast<std::ptrdiff_t>(at));
}

uint32_t FrameSize(const WaveFormat& format) {
  return static_cast<uint32_t>(format.channels) * static_cast<uint32_t>(format.bits / 8);
}

int PeriodsOf(double frequency) { return frequency <= 1000 ? 10 : 100; }

double PhaseStep(int32_t sampleRate, double frequency) {
  const double pi = 4 * std::atan(1.0);
  return 2 * pi / (sampleRate / frequency);
}

// The samples of a sine over some whole periods: up to where it crosses zero upwards for the last time.
std::vector<double> WholePeriods(int32_t sampleRate, double frequency) {
  const int periods = PeriodsOf(frequency);
  const double step = PhaseStep(sampleRate, frequency);
  const double expected = periods * (sampleRate / frequency);
  const auto limit = static_cast<uint32_t>(std::max<double>(sampleRate, expected + 2));
  std::vector<double> samples{0};
  int crossings = 0;
  for (uint32_t n = 1; n < limit; ++n) {
    const double now = std::sin(n * step);
    if (samples.back() < 0 && now >= 0 && ++crossings == periods) break;
    samples.push_back(now);
  }
  return samples;
}

}  // namespace

std::array<uint8_t, kWaveHeaderSize> WaveHeader(const WaveFormat& format, uint32_t dataSize) {
  std::array<uint8_t, kWaveHeaderSize> header{};
  const uint32_t frameSize = FrameSize(format);
  const auto sampleRate = static_cast<uint32_t>(format.sampleRate);
  PutText(header, 0, "RIFF");
  PutNumber(header, 4, dataSize + static_cast<uint32_t>(kWaveHeaderSize) - 8, 4);
  PutText(header, 8, "WAVEfmt ");
  PutNumber(header, 16, 16, 4);  // size of the format block
  PutNumber(header, 20, 1, 2);   // PCM
  PutNumber(header, 22, static_cast<uint32_t>(format.channels), 2);
  PutNumber(header, 24, sampleRate, 4);
  PutNumber(header, 28, sampleRate * frameSize, 4);
  PutNumber(header, 32, frameSize, 2);
  PutNumber(header, 34, static_cast<uint32_t>(format.bits), 2);
  PutText(header, 36, "data");
  PutNumber(header, 40, dataSize, 4);
  return header;
}

std::vector<uint8_t> ToneImage(double hertz, const WaveFormat& format) {
  const std::vector<double> samples =
      hertz >= 1 ? WholePeriods(format.sampleRate, hertz) : std::vector<double>();
  const size_t size = samples.size() * FrameSize(format);
  const auto header = WaveHeader(format, static_cast<uint32_t>(size));
  std::vector<uint8_t> image(header.begin(), header.end());
  image.resize(kWaveHeaderSize + size);

  const double fullScale = format.bits == 8 ? 127 : 32767;
  const size_t sampleSize = format.bits == 8 ? 1 : 2;
  size_t at = kWaveHeaderSize;
  for (const double value : samples) {
    for (int channel = 0; channel < format.channels; ++channel, at += sampleSize) {
      const double level = channel % 2 == 0 ? format.leftLevel : format.rightLevel;
      const int sample = static_cast<int>(level * (value * fullScale)) + (format.bits == 8 ? 127 : 0);
      PutNumber(image, at, static_cast<uint32_t>(sample), sampleSize);
    }
  }
  return image;
}

}  // namespace trillomat
