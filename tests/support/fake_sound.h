// A sound device that remembers.
#pragma once

#include <cmath>
#include <functional>
#include <string>
#include <vector>

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

  bool works = true;
  std::vector<std::string> lines;
  std::vector<int32_t> beeps;  ///< in Hz
  std::function<void()> onBeep;

 private:
  std::string Now() const {
    return clock_ == nullptr ? "" : " at " + std::to_string(std::lround(clock_->seconds * 1000));
  }

  FakeClock* clock_;
};

}  // namespace trillomat
