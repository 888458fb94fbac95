// File names and paths as text: UTF-8 to and from the system's own form, and as the log shows them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/file_store.h"

namespace trillomat {

/// A path or name of UTF-8 text, and back. Where the system's names are bytes, any bytes are taken as they
/// are.
std::filesystem::path PathOfUtf8(std::string_view text);
std::string Utf8OfPath(const std::filesystem::path& path);

/// Whether the name of `file` ends in ".mid" or ".midi".
bool HasMidiName(const std::filesystem::path& file);

/// `path` (UTF-8) as one line of Windows-1252 text: control characters and those that it lacks are "?". A
/// path that is no UTF-8 is taken as Windows-1252.
std::string LogText(std::string_view path);

/// The same for a path in the system's form; in its given form where it has one (FileStore::GivenPath).
std::string LogText(const std::filesystem::path& native, const FileStore& store);

}  // namespace trillomat
