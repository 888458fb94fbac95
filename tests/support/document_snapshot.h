// What of a document Undo and Redo have to bring back.
#pragma once

#include <filesystem>

#include "document/document.h"

namespace trillomat {

struct Snapshot {
  explicit Snapshot(const Document& document)
      : song(document.CurrentSong()),
        cursor(document.Cursor()),
        selection(document.Selection()),
        file(document.File()),
        changed(document.IsChanged()) {}
  bool operator==(const Snapshot&) const = default;

  Song song;
  int32_t cursor;
  ElementRange selection;
  std::filesystem::path file;
  bool changed;
};

}  // namespace trillomat
