// File names and paths as text: between the bytes that the list holds and the system's own form, and as
// the log shows them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "browser/file_store.h"

namespace trillomat {

/// A name of a FolderListing as a path, and a path as such bytes.
std::filesystem::path NamePath(std::string_view name);
std::string NameText(const std::filesystem::path& name);

/// `path` as one line of Windows-1252 text: what that lacks, and control characters, as "?". Bytes that
/// are no UTF-8 stand for themselves.
std::string PathText(std::string_view path);

/// The same for a path of the system, in its given form where it has one.
std::string PathText(const std::filesystem::path& native, const FileStore& store);

}  // namespace trillomat
