// Which reader and writer belong to which format: the one table with a row a mode.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/workspace.h"

namespace trillomat {

/// One format. What the functions take and return is said in its own header (imelody_file.h, ...).
struct FormatEntry {
  FormatMode mode;
  std::string_view extension;  ///< of its files, without the dot
  bool (*bReadFile)(const std::filesystem::path& file, Workspace& ws);
  bool (*bSaveFile)(const std::filesystem::path& file, Workspace& ws);
  bool (*ReadText)(std::string_view bytes, Workspace& ws);
  std::string (*WriteText)(Workspace& ws);
};

const FormatEntry& FormatOf(FormatMode mode);

}  // namespace trillomat
