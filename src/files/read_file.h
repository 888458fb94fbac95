// Reading a file whole, for the window and the command line.
#pragma once

#include <filesystem>
#include <string>

#include "core/refusal.h"
#include "files/file_store.h"

namespace trillomat {

/// All bytes of the file, or why it cannot be read, with the system's words: it is no plain file, or larger
/// than kLargestInput.
Result<std::string> ReadFile(const std::filesystem::path& file, const FileStore& store);

/// "larger than 64 MiB"
std::string TooLargeText();

}  // namespace trillomat
