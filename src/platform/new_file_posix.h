// New files that take the place of others, over POSIX.
//
// A new file has no name while it is written (O_TMPFILE), so whatever ends the program, nothing is left of
// it. Where there is no file yet it gets its name at once. Where there is one, it is named
// ".saving-INODE-N.trillomat" in the same folder for the instant before it is renamed over that. Where the
// medium has no files without a name it is called so from the start; a killed program then leaves it behind.
// The inode in its name tells it from every other file that is called so: a copy, or a file of somebody
// else's. Who works on it holds a lock (flock).
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <set>

#include "files/file_store.h"

namespace trillomat {

/// The names that new files have at the moment. May be used from any thread.
class UnfinishedFiles {
 public:
  /// Runs `step`, which makes, moves or deletes a named file, so that no End comes into its middle.
  /// False with the error EINTR, and nothing done, after an End.
  template <typename Step>
  bool Do(Step step) {
    const std::lock_guard guard(lock_);
    if (!ended_) return step(names_);
    errno = EINTR;
    return false;
  }
  /// Deletes them all; none comes after it.
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
/// allows; those of a group that it could not be given are left out.
void KeepRights(const std::filesystem::path& from, int to);

/// Copies what is left of one open file to another.
bool CopyBytes(int from, int to);

}  // namespace trillomat
