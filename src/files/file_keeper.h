// The seam to the place where files are put by that a command replaces or removes: the desktop's trash, or a
// folder of the program's own. Abstract so that each system has its own, and tests can make it fail.
#pragma once

#include <filesystem>
#include <optional>

namespace trillomat {

class FileKeeper {
 public:
  enum class How {
    Copy,
    Move,  ///< what cannot be moved there without being copied is not kept
  };

  FileKeeper() = default;
  FileKeeper(const FileKeeper&) = delete;
  FileKeeper& operator=(const FileKeeper&) = delete;
  virtual ~FileKeeper() = default;

  /// Keeps a plain file with its rights and times, and flushes it. Where it lies then; nothing when it could
  /// not, and errno says why, as far as it says anything.
  virtual std::optional<std::filesystem::path> Keep(const std::filesystem::path& file, How how) = 0;
  /// Deletes what Keep gave.
  virtual void Discard(const std::filesystem::path& kept) = 0;
};

}  // namespace trillomat
