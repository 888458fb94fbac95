// The checks that hold for any input of any fuzz target.
#pragma once

#include <cstdlib>

#include "formats/format_table.h"
#include "support/silent_workspace.h"

namespace trillomat {

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
