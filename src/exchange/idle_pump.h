// An event pump for work that nobody waits for: no event runs meanwhile.
#pragma once

#include "core/event_pump.h"

namespace trillomat {

class IdlePump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double /*milliseconds*/) override { return true; }
};

}  // namespace trillomat
