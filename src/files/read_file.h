// Reads a whole file, for the window and the command line.
#pragma once

#include <filesystem>
#include <string>

#include "core/refusal.h"
#include "files/file_store.h"

namespace trillomat {

/// All bytes of the file. Refused, with the system's words where it has any, when it cannot be read, is no
/// plain file, or is larger than kLargestInput.
Result<std::string> ReadFile(const std::filesystem::path& file, const FileStore& store);

/// "larger than 64 MiB": of what exceeds kLargestInput.
std::string TooLargeText();

}  // namespace trillomat
