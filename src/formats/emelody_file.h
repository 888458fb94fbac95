// The EMelody file ("emy"), the note text of the phones' own E-Melody editor between two markers. It
// carries no song information.
//
//   BEGIN:EMELODY              every line ends with CR LF
//   VERSION:1.0
//   MELODY:+C.(b)dPe           tokens without a separator or wrapping
//   END:EMELODY
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// Reads the file into ws.ImportMelody and ws.header. False when it is refused: ImportMelody is empty
/// then, ws.refusal says why, and header fields that were read already keep their new values. The log
/// says "Error in bReadFile_EMelody" (level 1) after a run-time fault.
bool bReadFile_EMelody(const std::filesystem::path& file, Workspace& ws);

/// The same from text in memory.
bool ReadText_EMelody(std::string_view bytes, Workspace& ws);

/// Appends ws.ExportMelody and ws.header to the file. False, and "Error in bSaveFile_EMelody" in the log
/// (level 1), when it cannot be written.
bool bSaveFile_EMelody(const std::filesystem::path& file, Workspace& ws);

/// What bSaveFile_EMelody writes, line end included; empty only when the program is ending.
std::string WriteText_EMelody(Workspace& ws);

}  // namespace trillomat
