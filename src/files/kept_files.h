// Keeps the files that Save, Save As and Delete replace or remove; the last such file can be put back in its
// place. Only plain files are kept, and none whose bytes are those of the new file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "files/file_keeper.h"
#include "files/file_store.h"

namespace trillomat {

/// A file that is about to be replaced.
struct KeptCopy {
  std::filesystem::path place = {};  ///< its path, links followed
  std::filesystem::path copy = {};   ///< empty where nothing had to be kept, or nothing could
  std::string fault = {};            ///< why it could not be kept: Windows-1252, a plain sentence; else empty
};

class KeptFiles {
 public:
  KeptFiles(FileStore& store, FileKeeper& keeper) : store_(store), keeper_(keeper) {}

  /// To be called before `bytes` take the place of `file`, which need not exist.
  KeptCopy KeepCopy(const std::filesystem::path& file, std::string_view bytes);
  /// The file was replaced: from now on Restore puts the copy back.
  void Replaced(const KeptCopy& copy);
  /// The file was not replaced: the copy is deleted.
  void NotReplaced(const KeptCopy& copy);

  /// Whether a file that is to be deleted has to be kept: a plain one, no link.
  bool IsWorthKeeping(const std::filesystem::path& file) const;
  struct Removal {
    bool removed = false;
    std::string fault = {};  ///< why it could not be kept and so was not removed: Windows-1252; else empty
  };
  /// Removes such a file by keeping it. One that cannot be kept is not deleted either: nothing would be left
  /// of it.
  Removal TakeAway(const std::filesystem::path& file);

  /// Whether there is a file that can be put back.
  bool CanRestore() const { return last_.has_value(); }
  struct Restored {
    std::filesystem::path place = {};
    std::string fault = {};  ///< why it was not put back, Windows-1252; else empty
  };
  /// Puts the last file that was replaced or removed back in its place, in one instant. The file that stands
  /// there by now is kept before, and is put back by the next Restore.
  Restored Restore();

 private:
  FileStore& store_;
  FileKeeper& keeper_;
  std::optional<KeptCopy> last_;
};

}  // namespace trillomat
