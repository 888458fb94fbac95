// A workspace whose log and event pump do nothing and cost nothing, for fuzz targets and benchmarks.
#pragma once

#include "core/workspace.h"

namespace trillomat {

class IdlePump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double /*milliseconds*/) override { return true; }
};

struct SilentWorkspace {
  SilentLog log;
  IdlePump pump;
  Workspace ws{log, pump};
};

}  // namespace trillomat
