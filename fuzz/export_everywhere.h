// The checks that hold for every export of any melody.
#pragma once

#include <algorithm>

#include "exchange/export_targets.h"
#include "fuzz/checks.h"

namespace trillomat {

/// Exports `melody` for every phone: a text that ends its lines, or words on why there is none.
inline void ExportEverywhere(const MelodyList& melody, Workspace& ws) {
  for (const ExportTarget& target : kExportTargets) {
    ws.ExportMelody = melody;
    const std::optional<std::string> text = ExportText(target.phone, ws);
    Require(text.has_value() == ws.refusal.empty());
    Require(ws.ExportMelody.size() == melody.size());
    if (!text) continue;
    const auto fits = [&target](const MelodyNote& note) {
      return note.Octave == kNoOctave ||
             (note.Octave >= target.range.low && note.Octave <= target.range.high);
    };
    Require(std::all_of(ws.ExportMelody.begin(), ws.ExportMelody.end(), fits));
    Require(target.phone == Phone::Rtttl ? text->starts_with(ws.header.Name.substr(0, 10))
                                         : text->ends_with("\r\n"));
  }
}

}  // namespace trillomat
