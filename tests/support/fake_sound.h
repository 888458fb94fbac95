// A sound device and a phone display that remember.
#pragma once

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "playback/player_view.h"
#include "playback/sound_device.h"
#include "support/fakes.h"

namespace trillomat {

/// Remembers what sounded. With a clock, also when, in ms of that clock; a beep then moves it.
class FakeSound : public SoundDevice {
 public:
  explicit FakeSound(FakeClock* clock = nullptr) : clock_(clock) {}

  bool StartWave(std::span<const uint8_t> image) override {
    lines.push_back("start " + std::to_string(image.size()) + Now());
    return works;
  }
  void StopWave() override { lines.push_back("stop" + Now()); }
  void Beep(int32_t hertz, int32_t milliseconds) override {
    lines.push_back(std::to_string(hertz) + " " + std::to_string(milliseconds));
    beeps.push_back(hertz);
    if (clock_ != nullptr) clock_->seconds += milliseconds / 1000.0;
    if (onBeep) onBeep();
  }

  void SetVolume(int percent) override { volume = percent; }

  bool works = true;
  int volume = 100;  ///< in percent
  std::vector<std::string> lines;
  std::vector<int32_t> beeps;  ///< in Hz
  std::function<void()> onBeep;

 private:
  std::string Now() const {
    return clock_ == nullptr ? "" : " at " + std::to_string(std::lround(clock_->seconds * 1000));
  }

  FakeClock* clock_;
};

/// What the display was told, in one list but for paintings and for which element plays.
class FakePlayerView : public PlayerView {
 public:
  void ShowFrequency(std::string_view text) override {
    calls.push_back("Hz " + std::string(text));
    if (onFrequency) onFrequency();
  }
  void ShowPicture(int picture) override { calls.push_back("picture " + std::to_string(picture)); }
  void Vibrate(bool on) override { calls.emplace_back(on ? "shake" : "still"); }
  void ShowPlaying(const std::optional<NowPlaying>& now) override {
    playing.push_back(!now ? "none"
                           : std::to_string(now->index) + " " + std::to_string(now->tone.value_or(-1)));
  }
  void PaintNow() override {
    if (onPaint) onPaint();
  }
  std::vector<std::string> calls;
  std::vector<std::string>
      playing;  ///< "INDEX TONE" of each element that began, -1 without a tone; or "none"
  std::function<void()> onFrequency;
  std::function<void()> onPaint;
};

}  // namespace trillomat
