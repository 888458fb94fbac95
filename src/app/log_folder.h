// Where the log is kept.
#pragma once

#include <filesystem>
#include <optional>

namespace trillomat {

/// `programFolder` when a file can be made there, else the user's folder for state that programs keep
/// ($XDG_STATE_HOME/trillomat, %LOCALAPPDATA%\Trillomat), made when missing; nothing when neither can be
/// written.
std::optional<std::filesystem::path> LogFolder(const std::filesystem::path& programFolder);

/// The user's folder for state, whether it exists or not.
std::filesystem::path StateFolder();

}  // namespace trillomat
