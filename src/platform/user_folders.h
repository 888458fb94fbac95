// Where the program is, and the folders in which it keeps its files for the user. Names in these paths need
// not be text.
#pragma once

#include <filesystem>

namespace trillomat {

/// The folder of the running program; empty when it cannot be told.
std::filesystem::path ProgramFolder();

/// The user's folder for state that programs keep ($XDG_STATE_HOME/trillomat, %LOCALAPPDATA%\Trillomat),
/// whether it exists or not.
std::filesystem::path StateFolder();

/// The user's folder for settings ($XDG_CONFIG_HOME/trillomat, %LOCALAPPDATA%\Trillomat), whether it exists
/// or not.
std::filesystem::path SettingsFolder();

}  // namespace trillomat
