// The event pump over Qt's event loop.
#pragma once

#include <chrono>

#include "core/event_pump.h"

namespace trillomat {

/// To be used from the thread of the window. Loops that pump run inside event handlers, so they nest: a
/// loop inside a handler inside a loop. The deeper a loop runs, the less often it lets events run, so that
/// a key that is held down cannot pile up handlers, and yet every loop can be stopped.
class QtPump : public EventPump {
 public:
  /// PumpEvents reaches the event queue at most once in this time, in milliseconds; each nested level
  /// doubles it. Waiting lets events run at any depth.
  static constexpr int kPumpInterval = 4;
  /// For how long, in milliseconds, one pump goes on with events that follow from those before: a window that
  /// is to be painted takes several, and between two beeps there is one pump.
  static constexpr int kLongestPump = 20;

  /// The window was closed: from now on every loop is told to leave, even those of the toolkit, whose boxes
  /// close.
  void End();

  bool PumpEvents() override { return --untilLook_ > 0 ? !ending_ : Look(); }
  bool WaitForEvents(double milliseconds) override;
  void TimeHasPassed() override { untilLook_ = 1; }

 private:
  using SteadyClock = std::chrono::steady_clock;

  bool Look();
  void Process(void (*process)());

  SteadyClock::time_point lastPump_ = SteadyClock::now();
  // Looking at the clock takes longer than the work on an element, so fast loops do not do it at each call.
  SteadyClock::time_point lastLook_ = lastPump_;
  int calls_ = 1;      ///< calls of PumpEvents from one look at the clock to the next
  int untilLook_ = 1;  ///< calls that are left until the next look
  int depth_ = 0;      ///< of nested loops
  bool ending_ = false;
};

}  // namespace trillomat
