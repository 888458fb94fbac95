// Files and standard streams as bytes. A path of "-" is standard input or output.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/replace_file.h"

namespace trillomat {

bool IsStandardStream(const std::filesystem::path& file);

/// All bytes of `file`. Throws Refused when it cannot be read.
std::string ReadInput(const std::filesystem::path& file);

/// Writes the whole content of `file` with `write`, as ReplaceFile does. Throws Refused when that failed.
void WriteOutput(const std::filesystem::path& file, const WriteContent& write);
void WriteOutput(const std::filesystem::path& file, std::string_view bytes);

}  // namespace trillomat
