#include "files/file_row.h"

namespace trillomat {

std::string FileRow::Text() const {
  switch (kind) {
    case RowKind::Previous: return "[Previous]";
    case RowKind::Folder: return "[" + name + "]";
    case RowKind::File: break;
  }
  return name;
}

}  // namespace trillomat
