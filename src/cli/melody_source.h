// Melodies from and to the paths of the command line.
#pragma once

#include <filesystem>
#include <optional>

#include "core/format_mode.h"
#include "core/workspace.h"

namespace trillomat {

/// The format of `file` by its extension, or `told` (--mode) for "-" and for an extension that is none
/// of the four. Throws WrongUsage when neither tells.
FormatMode FormatOfPath(const std::filesystem::path& file, std::optional<FormatMode> told);

/// Opens `file` as the window program would: its format becomes ws.iNoteMode, its melody ws.melody with
/// the cursor at -1, and style and volume pass through the panel. Throws Refused when it is refused.
void LoadMelody(Workspace& ws, const std::filesystem::path& file, FormatMode mode);

/// Saves ws.melody as `file` in the format `mode`. Throws Refused when it cannot be written; an
/// existing file is then as it was.
void SaveMelody(Workspace& ws, const std::filesystem::path& file, FormatMode mode);

}  // namespace trillomat
