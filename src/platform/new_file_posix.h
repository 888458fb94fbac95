// New files that take the place of others, over POSIX.
//
// A new file has no name while it is written (O_TMPFILE), so whatever ends the program, nothing is left of
// it. If there is no old file, it then gets its name directly. If there is one, it is called
// ".saving-INODE-N.trillomat" in the same folder for the instant before it is renamed over the old one. Where
// the medium has no files without a name, it is called so from the start, and a killed program leaves it
// behind. The inode number in its name tells it from all other files of such a name, like a copy of it. The
// program that works on it holds a lock (flock).
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <set>

#include "files/file_store.h"

namespace trillomat {

/// The names of the new files that have one and have not taken their place. May be used from any thread.
class UnfinishedFiles {
 public:
  /// Runs `step`, which makes, renames or deletes a file and keeps the names up to date, so that no End comes
  /// in between. Returns what it returns; after an End, does nothing and returns false with the error EINTR.
  template <typename Step>
  bool Do(Step step) {
    const std::lock_guard guard(lock_);
    if (!ended_) return step(names_);
    errno = EINTR;
    return false;
  }
  /// Deletes all these files; there are no new ones from then on.
  void End();

 private:
  std::mutex lock_;
  std::set<std::filesystem::path> names_;
  bool ended_ = false;
};

/// As FileStore::Make. `unfinished` outlives the file.
std::unique_ptr<NewFile> MakeNewFile(const std::filesystem::path& target, bool userAlone,
                                     UnfinishedFiles& unfinished);

/// As FileStore::CopyInPlace.
bool CopyNewFile(const std::filesystem::path& from, const std::filesystem::path& to, bool replace,
                 UnfinishedFiles& unfinished);

/// As FileStore::Sweep.
void SweepNewFiles(const std::filesystem::path& folder);

/// Gives the open file `to` the owner, the extended attributes and the rights of `from`, as far as the system
/// allows. When it cannot be given the group, the rights of the group are left out.
void KeepRights(const std::filesystem::path& from, int to);

/// Copies the rest of one open file to another. False when that fails.
bool CopyBytes(int from, int to);

}  // namespace trillomat
