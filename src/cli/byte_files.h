// Files and standard streams as bytes. A path of "-" is standard input or output.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace trillomat {

bool IsStandardStream(const std::filesystem::path& file);

/// A path of the command line, which is UTF-8 on every system, and back for messages.
std::filesystem::path PathOfUtf8(std::string_view text);
std::string Utf8OfPath(const std::filesystem::path& file);

/// All bytes of `file`. Throws Refused when it cannot be read.
std::string ReadInput(const std::filesystem::path& file);

/// Writes the whole content of `file` with `write`. An existing file is replaced only once everything
/// is written. When something throws or fails, that file is as it was, and Refused is thrown.
void WriteOutput(const std::filesystem::path& file, const std::function<void(std::ostream&)>& write);
void WriteOutput(const std::filesystem::path& file, std::string_view bytes);

}  // namespace trillomat
