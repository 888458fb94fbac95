// Moves a melody as a whole by octaves, so that every tone lies in the octaves that a phone's composer
// has. Tones, lengths and order stay. Octaves are internal numbers; elements without one are skipped.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// The octaves that a phone's composer has, both ends included.
struct OctaveRange {
  int16_t low;
  int16_t high;
};

/// Moves ws.ExportMelody into `low` to `high` by the smallest number of octaves and notes an upward move
/// in ws.ExportOctaveShift (a downward one is 0). False, with the melody as it was, when it has no
/// elements or spans more octaves than the range.
bool AdaptExportRange(int16_t low, int16_t high, Workspace& ws);

/// The same for ws.ImportMelody, which may be empty. `ImportOctaveShift` changes only on an upward move.
void AdaptImportRange(int16_t low, int16_t high, Workspace& ws, int16_t& ImportOctaveShift, bool& ok);

/// Plain words on why `notes` do not fit into the octaves of `phone` ("the Nokia Composer").
std::string RangeRefusal(std::span<const MelodyNote> notes, OctaveRange range, std::string_view phone);

}  // namespace trillomat
