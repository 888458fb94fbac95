// What Save, Save As and Delete replace or remove is kept, and the last such file can be put back in its
// place. Only plain files are kept, and only where their bytes are not in the new file anyway.
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
  std::filesystem::path place = {};  ///< that it had, links followed
  std::filesystem::path copy = {};   ///< empty where nothing had to be kept, or nothing could
  std::string fault = {};            ///< why it could not be kept: Windows-1252, a plain sentence; else empty
};

class KeptFiles {
 public:
  KeptFiles(FileStore& store, FileKeeper& keeper) : store_(store), keeper_(keeper) {}

  /// To be called before `bytes` take the place of `file`, which need not exist.
  KeptCopy KeepCopy(const std::filesystem::path& file, std::string_view bytes);
  /// The file of the copy was replaced: Restore puts it back now.
  void Replaced(const KeptCopy& copy);
  /// It was not: the copy goes.
  void NotReplaced(const KeptCopy& copy);

  /// Whether a file that is to be deleted has to be kept: a plain one, no link.
  bool IsWorthKeeping(const std::filesystem::path& file) const;
  struct Removal {
    bool removed = false;
    std::string fault = {};  ///< why it could not be kept, for which it stays where it is; else empty
  };
  /// Puts such a file by instead of deleting it. One that could not be kept is not deleted either: nothing
  /// would be left of it.
  Removal TakeAway(const std::filesystem::path& file);

  /// Whether there is a file that can be put back.
  bool CanRestore() const { return last_.has_value(); }
  struct Restored {
    std::filesystem::path place = {};
    std::string fault = {};  ///< why it was not put back, Windows-1252; else empty
  };
  /// Puts the last file back that was replaced or removed, in one instant. What stands in its place by now is
  /// kept before that, and can be put back by the next Restore.
  Restored Restore();

 private:
  FileStore& store_;
  FileKeeper& keeper_;
  std::optional<KeptCopy> last_;
};

}  // namespace trillomat
