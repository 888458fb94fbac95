// Reading a file whole, for the window and the command line.
#pragma once

#include <filesystem>
#include <string>

#include "core/refusal.h"

namespace trillomat {

/// All bytes of the file, or why it cannot be read, with the system's words.
Result<std::string> ReadFile(const std::filesystem::path& file);

}  // namespace trillomat
