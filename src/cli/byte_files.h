// Files and standard streams as bytes. A path of "-" is standard input or output.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/replace_file.h"

namespace trillomat {

bool IsStandardStream(const std::filesystem::path& file);

/// All bytes of `file`. Throws Refused when it cannot be read, or is larger than kLargestInput.
std::string ReadInput(const std::filesystem::path& file, const FileStore& store);

/// Writes the whole content of `file` with `write`, as ReplaceFile does. Throws Refused when that failed.
void WriteOutput(const std::filesystem::path& file, FileStore& store, const WriteContent& write);
void WriteOutput(const std::filesystem::path& file, FileStore& store, std::string_view bytes);

/// Throws Refused when not everything could be written to standard output, or ClosedPipe.
void FlushStandardOutput();

}  // namespace trillomat
