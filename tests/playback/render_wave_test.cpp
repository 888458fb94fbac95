#include "playback/render_wave.h"

#include <limits>

#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

uint32_t NumberAt(const std::string& bytes, size_t at) {
  uint32_t value = 0;
  for (size_t i = 4; i-- > 0;) value = value << 8 | static_cast<uint8_t>(bytes[at + i]);
  return value;
}

std::vector<int16_t> SamplesOf(const std::string& wave) {
  std::vector<int16_t> samples;
  for (size_t at = 44; at + 1 < wave.size(); at += 2) {
    samples.push_back(static_cast<int16_t>(static_cast<uint8_t>(wave[at]) | wave[at + 1] << 8));
  }
  return samples;
}

// Upward zero crossings a second.
double FrequencyOf(std::span<const int16_t> samples) {
  int crossings = 0;
  for (size_t i = 1; i < samples.size(); ++i) crossings += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
  return crossings * 44100.0 / static_cast<double>(samples.size());
}

TEST(RenderWave, CutsEachToneToItsExactLength) {
  Playing p("*3a2 r2 *3a2 *4c2 ledon");
  std::ostringstream out;
  ASSERT_TRUE(RenderWave(p.ws, 333, 1, out));
  const std::string wave = out.str();
  EXPECT_EQ(NumberAt(wave, 4), wave.size() - 8);
  EXPECT_EQ(NumberAt(wave, 40), wave.size() - 44);
  const auto samples = SamplesOf(wave);
  ASSERT_EQ(samples.size(), 58741U);  // 1332 ms, rounded once
  const std::span all(samples);
  EXPECT_NEAR(FrequencyOf(all.first(14685)), 440, 4.4);
  EXPECT_THAT(all.subspan(14685, 14686), testing::Each(0));
  EXPECT_NEAR(FrequencyOf(all.subspan(29371, 14685)), 440, 4.4);
  EXPECT_NEAR(FrequencyOf(all.subspan(44056)), 528, 5.3);
  // A ramp of 3 ms on both sides of the border between two tones.
  EXPECT_LT(std::abs(samples[44055]), 200);
  EXPECT_LT(std::abs(samples[44056]), 200);
  EXPECT_EQ(*std::max_element(samples.begin() + 29371 + 132, samples.begin() + 44056 - 132), 16383);
}

TEST(RenderWave, ManyShortElementsDoNotDrift) {
  std::string tokens;
  for (int i = 0; i < 1000; ++i) tokens += i % 2 == 0 ? "*3a5 " : "r5 ";
  Playing p(tokens);
  std::ostringstream out;
  ASSERT_TRUE(RenderWave(p.ws, 568, 1, out));  // 71 ms: 3131.1 samples
  EXPECT_EQ(SamplesOf(out.str()).size(), 3131100U);
}

TEST(RenderWave, PlaysEndlessBlocksAsOftenAsAsked) {
  Playing p("( *3a2 @0) @2)");
  for (const int32_t rounds : {1, 4}) {
    std::ostringstream out;
    ASSERT_TRUE(RenderWave(p.ws, 100, rounds, out));
    EXPECT_GE(SamplesOf(out.str()).size(), 4410U * static_cast<size_t>(rounds));
  }
}

TEST(RenderWave, LogsOnceWhatThePlayerLogs) {
  Playing p("*3h2");
  std::ostringstream out;
  ASSERT_TRUE(RenderWave(p.ws, 100, 1, out));
  EXPECT_THAT(p.log.lines, ElementsAre("1: Unknown tone-->h"));
  EXPECT_THAT(SamplesOf(out.str()), testing::Each(0));
}

TEST(RenderWave, RefusesWhatNoWavFileHolds) {
  Playing p("r2");
  std::ostringstream out;
  EXPECT_FALSE(RenderWave(p.ws, std::numeric_limits<int32_t>::max(), 1, out));
  EXPECT_EQ(p.ws.refusal, "The melody is too long for a WAV file.");
  EXPECT_THAT(out.str(), IsEmpty());
  p.Load("*3a2 r2");
  std::ostringstream failing;
  failing.setstate(std::ios::badbit);
  EXPECT_FALSE(RenderWave(p.ws, 100, 1, failing));
  EXPECT_EQ(p.ws.refusal, "The WAV file could not be written.");
  p.pump.ending = true;
  EXPECT_FALSE(RenderWave(p.ws, 100, 1, out));
  EXPECT_EQ(p.ws.refusal, "Interrupted.");
}

}  // namespace
}  // namespace trillomat
