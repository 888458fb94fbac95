// The user's folders: the XDG base directories of desktops.
#pragma once

#include <filesystem>

namespace trillomat {

/// The folder that the variable names ("XDG_STATE_HOME"), else the one below the home folder. A relative path
/// in the variable counts as none, as XDG wants it.
std::filesystem::path UserFolder(const char* variable, const char* belowHome);

}  // namespace trillomat
