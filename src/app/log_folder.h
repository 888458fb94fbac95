// Where the log is kept.
#pragma once

#include <filesystem>
#include <optional>

#include "files/file_store.h"

namespace trillomat {

/// The first of the two folders in which a file can be made; a missing folder is made. Nothing when a file
/// can be made in neither.
std::optional<std::filesystem::path> LogFolder(const std::filesystem::path& programFolder,
                                               const std::filesystem::path& stateFolder, FileStore& files);

}  // namespace trillomat
