// The seam to the drives, folders and files of the system. Paths of the given form have drive letters
// and "\" on every system ("C:\tunes\a.imy", bytes as the system has them, UTF-8 where it says so);
// NativePath turns one into the system's own form once, and everything else takes that. Abstract so that
// each system maps its drives as its users expect, and tests can make every step fail.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

/// The names found in a folder, sorted without regard to case.
struct FolderListing {
  std::vector<std::string> names;
  std::vector<std::string> leftOut;  ///< names that no path of the given form can hold
  bool complete = true;              ///< false when the folder could not be read to its end
};

/// Holds a lock for as long as it lives.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

class FileStore {
 public:
  FileStore() = default;
  FileStore(const FileStore&) = delete;
  FileStore& operator=(const FileStore&) = delete;
  virtual ~FileStore() = default;

  /// The drives present: bit i for the letter with code 65 + i. 0 when they cannot be told.
  virtual uint32_t Drives() = 0;
  /// How the drive is shown, its letter first: "C: /home/ada".
  virtual std::string DriveText(char letter) const = 0;

  /// The system's path of one in the given form; empty, and so of no file, for any other text.
  virtual std::filesystem::path NativePath(std::string_view given) const = 0;
  /// The given form of a path, made absolute first; nothing when one of its names cannot be written so.
  virtual std::optional<std::string> GivenPath(const std::filesystem::path& native) const = 0;

  /// The sub-folders of a folder, without "." and "..".
  virtual FolderListing ListFolders(const std::filesystem::path& folder) = 0;
  /// The ordinary files of a folder that match `pattern` ("*" and what follows), whatever their case.
  virtual FolderListing ListFiles(const std::filesystem::path& folder, std::string_view pattern) = 0;

  // Of what fails from here on, the system's last error (errno) says why, as far as it says anything.
  /// True for an entry of any kind, a link that leads nowhere included.
  virtual bool Exists(const std::filesystem::path& file) const = 0;
  /// Deletes a file, never a folder.
  virtual bool Delete(const std::filesystem::path& file) = 0;
  /// Copies a file and flushes the copy. False when `to` exists, or when the copy fails, which leaves
  /// nothing of it.
  virtual bool Copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

  /// Makes an empty file; false when the name is taken.
  virtual bool Create(const std::filesystem::path& file) = 0;
  /// Gives `to` the owner and the access rights of `from`, as far as the system allows.
  virtual void KeepRights(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// True once the file's bytes are on the medium.
  virtual bool Flush(const std::filesystem::path& file) = 0;
  /// True once the names in the folder are on the medium, and where the medium cannot be asked for it.
  virtual bool FlushFolder(const std::filesystem::path& folder) = 0;
  /// Whether another file can take the place of `file`: false for a folder, and for what nobody but its
  /// owner, or its present user, may remove.
  virtual bool CanRemove(const std::filesystem::path& file) const = 0;
  /// Renames a file within its folder; what was named `to` is replaced in the same instant.
  virtual bool Move(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

  /// Locks a file, made when missing; nothing while anybody else holds it. What the file holds can be read
  /// and written, and the file moved and deleted, all the same. The system ends the lock with the process,
  /// however that ends.
  virtual std::unique_ptr<FileLock> TryLock(const std::filesystem::path& file) = 0;
};

}  // namespace trillomat
