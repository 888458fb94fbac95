// The event pump of a program without a window: nothing arrives, so waiting is sleeping.
#pragma once

#include "core/event_pump.h"

namespace trillomat {

class SleepPump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double milliseconds) override;
};

}  // namespace trillomat
