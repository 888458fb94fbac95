// The event pump of a program without a window: nothing arrives, so waiting is sleeping.
#pragma once

#include <chrono>

#include "core/event_pump.h"

namespace trillomat {

/// Never returns early, as the library's own sleep may by less than a millisecond.
void SleepUntil(std::chrono::steady_clock::time_point end);

class SleepPump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double milliseconds) override;
};

}  // namespace trillomat
