// A log and an event pump that do nothing and cost nothing: for work that is done beside what the user asked
// for, and for fuzz targets and benchmarks.
#pragma once

#include "core/services.h"

namespace trillomat {

class IdlePump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double /*milliseconds*/) override { return true; }
};

struct SilentServices {
  SilentLog log;
  IdlePump pump;
  Services services{log, pump};
};

}  // namespace trillomat
