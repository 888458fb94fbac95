// The event pump of a program without a window: nothing arrives, so waiting is sleeping.
#pragma once

#include <chrono>

#include "core/event_pump.h"

namespace trillomat {

/// Sleeps until `end`; never less, while the library's own sleep may return up to a millisecond too early.
void SleepUntil(std::chrono::steady_clock::time_point end);

class SleepPump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double milliseconds) override;
};

}  // namespace trillomat
