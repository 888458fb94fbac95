// Plays for real, through SDL's drivers that need no sound card.
#include "platform/sound_sdl.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <numeric>
#include <thread>

#include "platform/clock_std.h"
#include "platform/pump_sleep.h"
#include "playback/play_controls.h"
#include "playback/wave_synthesis.h"
#include "support/fakes.h"
#include "support/sample_notes.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// An environment variable for as long as this lives.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) { setenv(name, value.c_str(), 1); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { unsetenv(name_); }

 private:
  const char* name_;
};

/// Plays I-Melody tokens at 120 beats a minute: a quarter takes 500 ms.
std::vector<std::string> PlayMelody(const std::string& tokens, OutputType output) {
  FakeLog log;
  SleepPump pump;
  const Services services{log, pump};
  Document document({.elements = ElementsOf(tokens), .info = {.bpm = 120}}, FormatMode::IMelody);
  const StdClock clock;
  SdlSound sound(log);
  NullPlayerView view;
  Player player(document, {services, clock, sound, view});
  player.outputType = output;
  const PlaySettings settings;
  NullPlayHost host;
  PlayControls(document, player, settings, host, services).Press(Control::Play);
  return log.lines;
}

/// A stretch of sound or silence: milliseconds, and hertz or 0.
struct Stretch {
  double length = 0;
  double hertz = 0;
};

std::vector<int16_t> SamplesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::vector<int16_t> samples(std::filesystem::file_size(file) / 2);
  in.read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(samples.size() * 2));
  return samples;
}

// The frequency, measured between the first and the last upward crossing of zero, which the ramps do not
// move.
double FrequencyOf(std::span<const int16_t> samples) {
  size_t first = 0;
  size_t last = 0;
  int periods = -1;
  for (size_t i = 1; i < samples.size(); ++i) {
    if (samples[i - 1] >= 0 || samples[i] < 0) continue;
    if (++periods == 0) first = i;
    last = i;
  }
  return periods < 1 ? 0 : periods * 44100.0 / static_cast<double>(last - first);
}

// Cuts the sound where its level passes half of a tone's: so the dip between two tones is a stretch, too.
std::vector<Stretch> Listen(std::span<const int16_t> samples) {
  constexpr size_t kWindow = 44;
  const auto loud = [&](size_t at) {
    const auto window = samples.subspan(at, kWindow);
    return std::any_of(window.begin(), window.end(), [](int16_t sample) { return std::abs(sample) > 8191; });
  };
  std::vector<Stretch> stretches;
  for (size_t at = 0; at + kWindow <= samples.size();) {
    const size_t begin = at;
    const bool sounds = loud(begin);
    while (at + kWindow <= samples.size() && loud(at) == sounds) at += kWindow;
    const auto part = samples.subspan(begin, at - begin);
    stretches.push_back({static_cast<double>(part.size()) / 44.1, sounds ? FrequencyOf(part) : 0});
  }
  return stretches;
}

// Whether `heard` is what was played, within 1 % of the frequency and 15 ms of the length. The dips
// between tones are heard but not expected; the silence at both ends is neither.
bool Matches(std::vector<Stretch> heard, const std::vector<Stretch>& played) {
  if (heard.size() < 2) return false;
  heard.erase(heard.begin());
  heard.pop_back();
  std::erase_if(heard, [](const Stretch& stretch) { return stretch.hertz == 0 && stretch.length < 20; });
  return std::equal(heard.begin(), heard.end(), played.begin(), played.end(), [](auto& is, auto& should) {
    return std::abs(is.hertz - should.hertz) <= should.hertz / 100 &&
           std::abs(is.length - should.length) <= 15;
  });
}

std::string Text(const std::vector<Stretch>& stretches) {
  std::string text;
  for (const auto& [length, hertz] : stretches) {
    text += std::to_string(length) + " ms " + std::to_string(hertz) + " Hz\n";
  }
  return text;
}

class SdlSoundTest : public testing::TestWithParam<OutputType> {};
INSTANTIATE_TEST_SUITE_P(Outputs, SdlSoundTest, testing::Values(OutputType::Wave, OutputType::Beep));

TEST_P(SdlSoundTest, EveryToneIsHeardWithItsFrequencyAndLength) {
  const auto file =
      std::filesystem::temp_directory_path() / ("trillomat-" + std::to_string(getpid()) + ".raw");
  const Variable driver("SDL_AUDIODRIVER", "disk");
  const Variable output("SDL_DISKAUDIOFILE", file.string());
  const std::vector<Stretch> played{{500, 440}, {500, 440}, {250, 1056}, {500, 0}, {375, 528}, {167, 992}};
  std::vector<Stretch> heard;
  // A machine under load can make a wait late; it does not do so every time.
  for (int attempt = 0; attempt < 4 && !Matches(heard, played); ++attempt) {
    const auto log = PlayMelody("*3a2 *3a2 *5c3 r2 *4c3. *4b3;", GetParam());
    ASSERT_THAT(log, ElementsAre("1: Done Playing"));
    heard = Listen(SamplesOf(file));
    std::filesystem::remove(file);
  }
  EXPECT_TRUE(Matches(heard, played)) << Text(heard);
}

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_P(SdlSoundTest, PlayingLeavesTheProcessorAlone) {
  const Variable driver("SDL_AUDIODRIVER", "dummy");
  const double before = ProcessorSeconds();
  PlayMelody("*3a1 r1 *3c2", GetParam());
  EXPECT_LT(ProcessorSeconds() - before, 0.05 * 2.5);
}

TEST(SdlSound, WithoutADeviceTheMelodyKeepsItsTime) {
  const Variable driver("SDL_AUDIODRIVER", "none such");
  for (const auto output : {OutputType::Wave, OutputType::Beep}) {
    const auto begin = std::chrono::steady_clock::now();
    const auto log = PlayMelody("*3a4 *3a4", output);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(taken.count(), 250 - 8);  // the clock of the wait is that coarse late in the day
    EXPECT_THAT(log.front(), HasSubstr("1: No sound"));
    EXPECT_EQ(std::count(log.begin(), log.end(), "1: Failed to start Wave file.."),
              output == OutputType::Wave ? 2 : 0);
  }
}

// Whether `work` takes about that many milliseconds; a busy machine may be a little late.
bool Takes(int milliseconds, const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
  if (std::abs(taken.count() - milliseconds) < 400) return true;
  std::cerr << taken.count() << " ms instead of " << milliseconds << "\n";
  return false;
}

// The device is a pipe: without a reader it does not open, and one that does not read fills up in a second.
[[noreturn]] void UseHangingDevice(const std::string& pipe, bool opens) {
  if (opens) open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  FakeLog log;
  auto sound = std::make_unique<SdlSound>(log);
  const std::vector<uint8_t> image = ToneImage(440);
  bool holds = Takes(300, [&] { sound->Beep(440, 300); });
  holds = Takes(600, [&] { sound->Beep(440, 600); }) && holds;
  holds = Takes(opens ? 0 : 1100, [&] { holds = sound->StartWave(image) == opens && holds; }) && holds;
  holds = Takes(0, [&] { holds = sound->StartWave(image) == opens && holds; }) && holds;
  holds = Takes(400, [&] { sound->Beep(440, 400); }) && holds;
  holds = Takes(0, [&] { sound.reset(); }) && holds;
  const std::vector<std::string> lines{"1: No sound device: it does not answer"};
  std::exit(holds && log.lines == (opens ? std::vector<std::string>() : lines) ? 0 : 1);
}

TEST(SdlSound, ADeviceThatHangsHoldsNothingUp) {
  const TempFolder folder;
  const std::string pipe = folder / "device";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const Variable driver("SDL_AUDIODRIVER", "disk");
  const Variable output("SDL_DISKAUDIOFILE", pipe);
  for (const bool opens : {false, true}) {
    EXPECT_TRUE(Takes(opens ? 1300 : 2400, [&] {
      EXPECT_EXIT(UseHangingDevice(pipe, opens), testing::ExitedWithCode(0), "");
    })) << opens;
  }
}

// What is written to the disk while `play` plays.
std::vector<int16_t> Recorded(const std::function<void(SdlSound&)>& play) {
  const TempFolder folder;
  const Variable driver("SDL_AUDIODRIVER", "disk");
  const Variable output("SDL_DISKAUDIOFILE", folder / "sound");
  FakeLog log;
  {
    SdlSound sound(log);
    play(sound);
  }
  return SamplesOf(folder / "sound");
}

// The highest root of the mean square of 50 ms in a row.
double LoudestRms(std::span<const int16_t> samples) {
  constexpr size_t kWindow = 2205;
  double loudest = 0;
  for (size_t at = 0; at + kWindow <= samples.size(); at += kWindow / 5) {
    const auto window = samples.subspan(at, kWindow);
    const double squares =
        std::accumulate(window.begin(), window.end(), 0.0, [](double sum, int16_t s) { return sum + s * s; });
    loudest = std::max(loudest, std::sqrt(squares / kWindow));
  }
  return loudest;
}

TEST(SdlSound, TheVolumeIsHeardInEveryToneAndInTheMiddleOfOne) {
  const auto rms = [](int percent, bool wave) {
    return LoudestRms(Recorded([percent, wave](SdlSound& sound) {
      sound.SetVolume(percent);
      if (!wave) return sound.Beep(440, 150);
      sound.StartWave(ToneImage(440));
      std::this_thread::sleep_for(std::chrono::milliseconds(150));
    }));
  };
  for (const bool wave : {true, false}) {
    EXPECT_NEAR(rms(100, wave), 16383 / std::sqrt(2), 60);
    EXPECT_NEAR(20 * std::log10(rms(50, wave) / rms(100, wave)), -10, 0.2) << "half as loud";
    EXPECT_EQ(rms(0, wave), 0);
  }
  const auto turnedDown = Recorded([](SdlSound& sound) {
    sound.StartWave(ToneImage(440));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    sound.SetVolume(0);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  });
  const std::span<const int16_t> all(turnedDown);
  EXPECT_NEAR(LoudestRms(all), 16383 / std::sqrt(2), 60);
  EXPECT_EQ(LoudestRms(all.last(8820)), 0) << "the tone still ran";
  int steepest = 0;
  for (size_t i = 1; i < all.size(); ++i) steepest = std::max(steepest, std::abs(all[i] - all[i - 1]));
  EXPECT_LT(steepest, 1027 + 130) << "clicked";  // the sine's own, and the ramp's
}

}  // namespace
}  // namespace trillomat
