#include "playback/wave_synthesis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace trillomat {
namespace {

uint32_t NumberAt(std::span<const uint8_t> bytes, size_t at, size_t size) {
  uint32_t value = 0;
  for (size_t i = 0; i < size; ++i) value |= uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

int16_t SampleAt(std::span<const uint8_t> image, size_t frame) {
  return static_cast<int16_t>(NumberAt(image, kWaveHeaderSize + 2 * frame, 2));
}

// The frames of a mono 16-bit tone.
size_t FramesOf(double frequency) {
  WaveSynthesis wave;
  wave.BuildWaveHeader(44100, 16, 1, 0.5, 0.5);
  wave.SynthesiseTone(frequency);
  return wave.Samples().size() / 2;
}

TEST(WaveSynthesis, WritesTheHeaderByteForByte) {
  WaveSynthesis wave;
  wave.BuildWaveHeader(44100, 16, 1, 0.5, 0.5);
  wave.SynthesiseTone(440);
  const auto frames = static_cast<uint32_t>(wave.Samples().size() / 2);
  EXPECT_EQ(frames, 1003U);
  const std::vector<uint8_t> header(wave.Image().begin(), wave.Image().begin() + kWaveHeaderSize);
  const std::vector<uint8_t> expected{'R', 'I', 'F',  'F',  0xFA, 0x07, 0,    0,    'W',  'A', 'V',
                                      'E', 'f', 'm',  't',  ' ',  16,   0,    0,    0,    1,   0,
                                      1,   0,   0x44, 0xAC, 0,    0,    0x88, 0x58, 1,    0,   2,
                                      0,   16,  0,    'd',  'a',  't',  'a',  0xD6, 0x07, 0,   0};
  EXPECT_EQ(header, expected);
}

TEST(WaveSynthesis, CutsHalfScaleSamplesTowardsZero) {
  WaveSynthesis wave;
  wave.BuildWaveHeader(44100, 16, 1, 0.5, 0.5);
  wave.SynthesiseTone(11025);  // four samples a period, so the values are plain
  const auto image = wave.Image();
  EXPECT_EQ(SampleAt(image, 0), 0);
  EXPECT_EQ(SampleAt(image, 1), 16383);
  EXPECT_EQ(SampleAt(image, 3), -16383);
  wave.SynthesiseTone(440);
  EXPECT_EQ(SampleAt(wave.Image(), 1),
            static_cast<int>(0.5 * 32767 * std::sin(2 * std::numbers::pi * 440 / 44100)));
}

TEST(WaveSynthesis, EndsAtTheUpwardCrossingOfTheLastPeriod) {
  EXPECT_NEAR(static_cast<double>(FramesOf(1000)), 441.5, 0.5);  // the last crossing is a hair's breadth off
  EXPECT_EQ(FramesOf(33), 13364U);
  EXPECT_EQ(FramesOf(1056), 4177U);
  // 10 periods up to 1000 Hz, 100 above.
  EXPECT_NEAR(static_cast<double>(FramesOf(999)), 441.4, 1);
  EXPECT_NEAR(static_cast<double>(FramesOf(1001)), 4405.6, 1);
}

TEST(WaveSynthesis, StaysBoundedWhereTheSampledSineHasNoPeriods) {
  for (const double hertz : {22049.5, 22050.0, 31744.0, 44099.0, 44100.0, 88200.0, 2080374784.0}) {
    const size_t frames = FramesOf(hertz);
    EXPECT_GT(frames, 0U) << hertz;
    EXPECT_LE(frames, 44100U) << hertz;
  }
  EXPECT_EQ(FramesOf(0), 0U);
  EXPECT_EQ(FramesOf(1), 441001U);
}

TEST(WaveSynthesis, HasEightBitsAndSeveralChannels) {
  WaveSynthesis wave;
  wave.BuildWaveHeader(8000, 8, 2, 0.5, 0.25);
  wave.SynthesiseTone(1000);
  const auto image = wave.Image();
  EXPECT_EQ(NumberAt(image, 22, 2), 2U);      // channels
  EXPECT_EQ(NumberAt(image, 28, 4), 16000U);  // bytes a second
  EXPECT_EQ(NumberAt(image, 32, 2), 2U);      // bytes a frame
  EXPECT_EQ(NumberAt(image, 34, 2), 8U);
  EXPECT_EQ(NumberAt(image, 40, 4) + kWaveHeaderSize, image.size());
  EXPECT_EQ(image[44], 127);
  EXPECT_EQ(image[44 + 2 * 2], 127 + 63);  // left, a quarter period on
  EXPECT_EQ(image[45 + 2 * 2], 127 + 31);  // right
  EXPECT_EQ(image[44 + 2 * 6], 127 - 63);
}

}  // namespace
}  // namespace trillomat
