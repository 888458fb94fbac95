// A workspace whose log and event pump do nothing and cost nothing, for fuzz targets and benchmarks.
#pragma once

#include "core/workspace.h"

namespace trillomat {

class SilentLog : public Log {
 public:
  void WriteLog(std::string_view /*message*/, int16_t /*level*/) override {}
};

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
