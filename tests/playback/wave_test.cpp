// The wave images of single tones and the WAV file of a melody.
#include <cmath>
#include <numbers>
#include <sstream>

#include "playback/render_wave.h"
#include "playback/volume.h"
#include "playback/wave_synthesis.h"
#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The little-endian number of `size` bytes.
uint32_t NumberAt(std::span<const uint8_t> bytes, size_t at, size_t size) {
  uint32_t value = 0;
  for (size_t i = 0; i < size; ++i) value |= uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

std::vector<int16_t> SamplesOf(std::span<const uint8_t> wave) {
  std::vector<int16_t> samples;
  for (size_t at = kWaveHeaderSize; at + 1 < wave.size(); at += 2)
    samples.push_back(static_cast<int16_t>(NumberAt(wave, at, 2)));
  return samples;
}

TEST(WaveSynthesis, WritesTheHeaderByteForByte) {
  const std::vector<uint8_t> image = ToneImage(440);
  EXPECT_EQ(SamplesOf(image).size(), 1003U);
  const std::vector<uint8_t> header(image.begin(), image.begin() + kWaveHeaderSize);
  const std::vector<uint8_t> expected{'R', 'I', 'F',  'F',  0xFA, 0x07, 0,    0,    'W',  'A', 'V',
                                      'E', 'f', 'm',  't',  ' ',  16,   0,    0,    0,    1,   0,
                                      1,   0,   0x44, 0xAC, 0,    0,    0x88, 0x58, 1,    0,   2,
                                      0,   16,  0,    'd',  'a',  't',  'a',  0xD6, 0x07, 0,   0};
  EXPECT_EQ(header, expected);
}

TEST(WaveSynthesis, CutsHalfScaleSamplesTowardsZero) {
  const auto samples = SamplesOf(ToneImage(11025));  // four a period, so the values are plain
  EXPECT_EQ(samples[0], 0);
  EXPECT_EQ(samples[1], 16383);
  EXPECT_EQ(samples[3], -16383);
  EXPECT_EQ(SamplesOf(ToneImage(440))[1],
            static_cast<int>(0.5 * 32767 * std::sin(2 * std::numbers::pi * 440 / 44100)));
}

TEST(WaveSynthesis, EndsAtTheUpwardCrossingOfTheLastPeriod) {
  struct Case {
    double hertz;
    double frames;
    double tolerance;
  };
  // 10 periods up to 1000 Hz, 100 above; at most a second where the sampled sine has no periods.
  for (const Case& c :
       {Case{33, 13364, 0}, Case{999, 441.4, 1}, Case{1000, 441.5, 0.5}, Case{1001, 4405.6, 1},
        Case{1056, 4177, 0}, Case{22050, 22050, 22050}, Case{44100, 22050, 22050},
        Case{2080374784, 22050, 22049}, Case{0, 0, 0}, Case{1, 441001, 0}}) {
    EXPECT_NEAR(static_cast<double>(SamplesOf(ToneImage(c.hertz)).size()), c.frames, c.tolerance) << c.hertz;
  }
}

TEST(WaveSynthesis, HasEightBitsAndSeveralChannels) {
  const auto image = ToneImage(1000, {8000, 8, 2, 0.5, 0.25});
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

std::vector<uint8_t> Rendered(Playing& p, int32_t bpm, int32_t rounds = 1) {
  std::ostringstream out;
  p.SetTempo(bpm);
  EXPECT_FALSE(RenderWave(p.document, {.endlessRounds = rounds}, p.services, out));
  const std::string text = out.str();
  return {text.begin(), text.end()};
}

TEST(RenderWave, CutsEachToneToItsExactLength) {
  Playing p("*3a2 r2 *3a2 *4c2 ledon");
  const auto wave = Rendered(p, 180);
  EXPECT_EQ(NumberAt(wave, 4, 4), wave.size() - 8);
  EXPECT_EQ(NumberAt(wave, 40, 4), wave.size() - 44);
  const auto samples = SamplesOf(wave);
  ASSERT_EQ(samples.size(), 58741U);  // 1332 ms, rounded once
  const auto loops = [&samples](size_t from, double hertz) {
    const auto loop = SamplesOf(ToneImage(hertz));
    for (size_t k = 132; k < 14685 - 132; ++k) {
      if (samples[from + k] != loop[k % loop.size()]) return false;
    }
    return true;
  };
  EXPECT_TRUE(loops(0, 440) && loops(29371, 440) && loops(44056, 528));
  EXPECT_THAT(std::span(samples).subspan(14685, 14686), testing::Each(0));
  // A ramp of 3 ms on both sides of the border between two tones.
  EXPECT_LT(std::abs(samples[44055]), 200);
  EXPECT_LT(std::abs(samples[44056]), 200);
}

TEST(RenderWave, PlaysEndlessBlocksAsOftenAsAsked) {
  Playing p("( *3a2 @0) @2)");
  for (const int32_t rounds : {1, 4})
    EXPECT_GE(SamplesOf(Rendered(p, 600, rounds)).size(), 4410U * static_cast<size_t>(rounds));
}

TEST(RenderWave, LogsOnceWhatThePlayerLogsAndGivesNoTimeToWhatIsNotSounded) {
  Playing p("*3h2");
  EXPECT_THAT(SamplesOf(Rendered(p, 600)), IsEmpty());
  EXPECT_THAT(p.log.lines, ElementsAre("1: Unknown tone-->h"));
}

TEST(RenderWave, SaysWhyItDoesNot) {
  const std::string hour = "the melody has more than an hour of sound";
  const std::string again = "the melody plays more than 30,000 elements over again";
  const std::string tooLong = "the melody is too long for a WAV file";
  struct Case {
    std::string tokens;  // at a beat a minute
    bool anyLength;
    std::string why;
  };
  for (const Case& c : {Case{"( r0 @15)", false, ""}, Case{"( r0 @15) r5", false, hour},
                        Case{"( r0 @999999999)", false, hour}, Case{"( ledon @999999999)", false, again},
                        Case{"( @999999999)", false, again}, Case{"( ledon @999999999)", true, ""},
                        Case{"( r0 @300)", true, tooLong}}) {
    Playing p(c.tokens);
    p.SetTempo(1);
    std::ostringstream out;
    if (c.why.empty()) out.setstate(std::ios::badbit);  // what could be rendered is refused here
    const auto failure = RenderWave(p.document, {.anyLength = c.anyLength}, p.services, out);
    const std::string expected = c.why.empty() ? "the WAV file could not be written" : c.why;
    ASSERT_TRUE(failure) << c.tokens;
    EXPECT_EQ(failure->why, expected) << c.tokens;
    EXPECT_EQ(failure->tooMuch, c.why == hour || c.why == again) << c.tokens;
    EXPECT_THAT(out.str(), IsEmpty());
  }
  Playing p("*3a2");
  p.pump.ending = true;
  std::ostringstream out;
  EXPECT_EQ(RenderWave(p.document, {}, p.services, out)->why, "interrupted");
}

TEST(Volume, FullIsBitForBitAndHalfOfItIsTenDecibelsWeaker) {
  EXPECT_EQ(VolumeGain(100), 1);
  EXPECT_EQ(VolumeGain(250), 1);
  EXPECT_EQ(VolumeGain(0), 0);
  EXPECT_EQ(VolumeGain(-1), 0);
  EXPECT_NEAR(20 * std::log10(VolumeGain(50)), -10, 0.05);
  const std::vector<uint8_t> full = ToneImage(440);
  std::vector<uint8_t> image = full;
  ScaleImage(image, 1);
  EXPECT_EQ(image, full);
  ScaleImage(image, 0.5);
  EXPECT_EQ(image.size(), full.size());
  for (size_t at = kWaveHeaderSize; at < full.size(); at += 2) {
    const auto sample = [at](const auto& of) { return static_cast<int16_t>(of[at] | of[at + 1] << 8); };
    ASSERT_NEAR(sample(image), sample(full) / 2.0, 0.5);
  }
}

}  // namespace
}  // namespace trillomat
