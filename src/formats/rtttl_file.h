// The RTTTL file ("rtx"): one line of RTTTL text (rtttl_header.h has the format), ended by CR LF.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// Reads the file into ws.ImportMelody and ws.header. False when it is refused: ImportMelody is empty
/// then, ws.refusal says why, and header fields that were read already keep their new values. The log
/// says "Error in bReadFile_RTTTL" (level 1) after a run-time fault.
bool bReadFile_RTTTL(const std::filesystem::path& file, Workspace& ws);

/// The same from text in memory.
bool ReadText_RTTTL(std::string_view bytes, Workspace& ws);

/// Appends ws.ExportMelody and ws.header to the file. False, and "Error in bSaveFile_RTTTL" in the log
/// (level 1), when it cannot be written.
bool bSaveFile_RTTTL(const std::filesystem::path& file, Workspace& ws);

/// What bSaveFile_RTTTL writes, line end included; empty only when the program is ending.
std::string WriteText_RTTTL(Workspace& ws);

}  // namespace trillomat
