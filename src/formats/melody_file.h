// The Melody file ("mel"): the bare note text of the phones' Melody editor on one line, ended by
// CR LF. It carries no song information.
//
//   +C(b)dpe
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// Reads the file into ws.ImportMelody and ws.header. False when it is refused: ImportMelody is empty
/// then, ws.refusal says why, and header fields that were read already keep their new values. The log
/// says "Error in bReadFile_Melody" (level 1) after a run-time fault.
bool bReadFile_Melody(const std::filesystem::path& file, Workspace& ws);

/// The same from text in memory.
bool ReadText_Melody(std::string_view bytes, Workspace& ws);

/// Appends ws.ExportMelody and ws.header to the file. False, and "Error in bSaveFile_Melody" in the log
/// (level 1), when it cannot be written.
bool bSaveFile_Melody(const std::filesystem::path& file, Workspace& ws);

/// What bSaveFile_Melody writes, line end included; empty only when the program is ending.
std::string WriteText_Melody(Workspace& ws);

}  // namespace trillomat
