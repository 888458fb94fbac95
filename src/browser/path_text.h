// File names and paths as the log shows them.
#pragma once

#include <string>
#include <string_view>

#include "browser/file_store.h"

namespace trillomat {

/// `path` as one line of Windows-1252 text: what that lacks, and control characters, as "?". Bytes that
/// are no UTF-8 stand for themselves.
std::string PathText(std::string_view path);

/// The same for a path of the system, in its given form where it has one.
std::string PathText(const std::filesystem::path& native, const FileStore& store);

}  // namespace trillomat
