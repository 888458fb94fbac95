// Fakes of the seams that every subsystem uses: a log that remembers, a clock moved by hand, and an
// event pump that runs scripted events and moves the clock instead of sleeping.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/clock.h"
#include "core/services.h"

namespace trillomat {

/// Keeps every line as "LEVEL: message".
class FakeLog : public Log {
 public:
  void WriteLog(std::string_view message, int16_t level) override {
    lines.push_back(std::to_string(level) + ": " + std::string(message));
  }
  std::vector<std::string> lines;
};

class FakeClock : public Clock {
 public:
  double SecondsSinceMidnight() const override { return seconds; }
  std::string DateText() const override { return date; }
  std::string TimeText() const override { return time; }

  double seconds = 0;
  std::string date = "14.05.2002";
  std::string time = "12:34:56";
};

/// Waiting puts the clock forward. `onPump`, when set, runs at each pump with the number of pumps so far.
class FakePump : public EventPump {
 public:
  explicit FakePump(FakeClock* clock = nullptr) : clock_(clock) {}

  bool PumpEvents() override {
    ++pumps;
    if (onPump) onPump(pumps);
    return !ending;
  }
  bool WaitForEvents(double milliseconds) override {
    if (clock_ != nullptr) clock_->seconds += milliseconds / 1000;
    return PumpEvents();
  }

  int pumps = 0;
  bool ending = false;
  std::function<void(int)> onPump;

 private:
  FakeClock* clock_;
};

/// All of them together.
struct FakeServices {
  FakeLog log;
  FakeClock clock;
  FakePump pump{&clock};
  Services services{log, pump};
};

}  // namespace trillomat
