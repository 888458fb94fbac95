// What "Save As" and "Export sound..." share: the save dialog, what is asked before a file is replaced, and
// how far the writing has come.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "core/progress_pump.h"
#include "files/files_host.h"

namespace trillomat {

/// The filter text of the save dialog from pairs of a description and an extension. Each gives
/// "DESCRIPTION (*.EXT)" and "*.EXT", every part ended by NUL, the last by the text " + Chr$(0)".
std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats);

/// The file that a save dialog's answer means: its name without blanks at the end and cut before a NUL,
/// with "." and `extension` appended unless it contains them. Nothing for an answer without a name.
std::optional<std::filesystem::path> ChosenFile(const std::filesystem::path& answer,
                                                std::string_view extension);

/// Asks whether the file of that name may be replaced; true for Yes.
bool AskToReplace(FilesHost& host);

/// Lets events run as the services of `parts` do, and has the host show how many elements of `file` are
/// written. The caller clears that at the end.
ProgressPump WritingPump(const std::filesystem::path& file, const FileParts& parts);

}  // namespace trillomat
