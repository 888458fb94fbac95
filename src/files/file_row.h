// One row of the list of folders and files.
#pragma once

#include <string>

namespace trillomat {

enum class RowKind { Previous, Folder, File };

struct FileRow {
  RowKind kind = RowKind::File;
  std::string name;  ///< of the folder or file, in the system's bytes

  /// What the list shows: "[Previous]", "[folder]" or the file's name.
  std::string Text() const;
  bool IsFile() const { return kind == RowKind::File; }
  bool operator==(const FileRow&) const = default;
};

}  // namespace trillomat
