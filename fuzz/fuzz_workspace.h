// What every fuzz target works on: a workspace whose log and event pump do nothing, and the checks
// that hold for any input.
#pragma once

#include <cstdlib>
#include <string_view>

#include "core/workspace.h"
#include "formats/format_table.h"

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

struct FuzzWorkspace {
  SilentLog log;
  IdlePump pump;
  Workspace ws{log, pump};
};

/// Stops the fuzzer with a finding when `holds` is false.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// Writes `melody` in every format; the marks must agree with the brackets.
inline void WriteEverywhere(const MelodyList& melody, Workspace& ws) {
  for (const ModeLimits& limits : kModeLimits) {
    ws.ExportMelody = melody;
    Require(FormatOf(limits.mode).WriteText(ws).ends_with("\r\n"));
    for (MelodyNote& note : ws.ExportMelody) {
      const std::string token = ws.codec.EncodeNote(note, limits.mode);
      Require(!note.NotSupported || (token.starts_with('[') && token.ends_with(']')));
    }
  }
}

}  // namespace trillomat
