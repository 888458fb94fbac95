// The iMelody file ("imy"), the exchange format of the iMelody 1.2 specification:
//
//   BEGIN:IMELODY              every line ends with CR LF
//   VERSION:1.2
//   FORMAT:CLASS1.0
//   NAME:...
//   COMPOSER:...
//   BEAT:120                   quarter notes per minute
//   STYLE:S0
//   VOLUME:V10
//   MELODY:c2*5#d3.r2ledon(... tokens without a separator; a continued line starts with a blank
//   END:IMELODY
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// Reads the file into ws.ImportMelody and ws.header. False when it is refused: ImportMelody is empty
/// then, ws.refusal says why, and header fields that were read already keep their new values. The log
/// says "Error in bReadFile_IMelody" (level 1) after a run-time fault.
bool bReadFile_IMelody(const std::filesystem::path& file, Workspace& ws);

/// The same from text in memory.
bool ReadText_IMelody(std::string_view bytes, Workspace& ws);

/// Appends ws.ExportMelody and ws.header to the file. False, and "Error in bSaveFile_IMelody" in the log
/// (level 1), when it cannot be written.
bool bSaveFile_IMelody(const std::filesystem::path& file, Workspace& ws);

/// What bSaveFile_IMelody writes, line end included; empty only when the program is ending.
std::string WriteText_IMelody(Workspace& ws);

}  // namespace trillomat
