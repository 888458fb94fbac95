// The seam to the place where files are kept that a command replaces or deletes: the desktop's trash, or a
// folder of the program's own. Abstract so that each system has its own, and tests can make it fail.
#pragma once

#include <filesystem>
#include <optional>

namespace trillomat {

class FileKeeper {
 public:
  enum class How {
    Copy,
    Move,  ///< never by copying and deleting: Keep fails where the file cannot be moved there directly
  };

  FileKeeper() = default;
  FileKeeper(const FileKeeper&) = delete;
  FileKeeper& operator=(const FileKeeper&) = delete;
  virtual ~FileKeeper() = default;

  /// Keeps a plain file with its rights and times, and flushes it. Returns where it is now; nothing when it
  /// could not be kept, for which errno gives the reason if it is not 0.
  virtual std::optional<std::filesystem::path> Keep(const std::filesystem::path& file, How how) = 0;
  /// Deletes a file that Keep has returned.
  virtual void Discard(const std::filesystem::path& kept) = 0;
};

}  // namespace trillomat
