// File names and paths as text: UTF-8 to and from the system's own form, and as the log shows them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/file_store.h"

namespace trillomat {

/// A path or name of UTF-8 text, and back. Where the system's names are bytes all bytes pass.
std::filesystem::path PathOfUtf8(std::string_view text);
std::string Utf8OfPath(const std::filesystem::path& path);

/// Whether the name of `file` ends in ".mid" or ".midi".
bool HasMidiName(const std::filesystem::path& file);

/// `path` (UTF-8) as one line of Windows-1252 text: what that lacks, and control characters, as "?". Bytes
/// that are no UTF-8 stand for themselves.
std::string LogText(std::string_view path);

/// The same for a path of the system, in its given form where it has one.
std::string LogText(const std::filesystem::path& native, const FileStore& store);

}  // namespace trillomat
