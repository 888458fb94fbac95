// The seam to the drives, folders and files of the system. Paths of the given form have drive letters and "\"
// on every system ("C:\tunes\a.imy"; names in the system's bytes, UTF-8 where they are text). NativePath
// turns one into the system's own form, which everything else takes. Abstract so that each system maps its
// drives as its users expect, and tests can make every step fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

/// What was found in a folder.
struct FolderListing {
  struct Names {
    std::vector<std::string> names;    ///< sorted without regard to case
    std::vector<std::string> leftOut;  ///< those that no path of the given form can hold
  };

  Names folders;
  Names files;
  bool complete = true;  ///< false when the folder could not be read to its end
};

/// A lock on a file, held for as long as this lives.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

/// An open file that takes bytes; closed by the destructor.
class OutputFile {
 public:
  OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  virtual ~OutputFile() = default;

  /// False when not all of them were taken.
  virtual bool Write(std::string_view bytes) = 0;
};

/// A file that is to take the place of another one. Until it has, it does not have that one's name, and
/// nothing of it is left after the destructor, or when the program is killed, as far as the medium allows.
class NewFile : public OutputFile {
 public:
  /// Writes everything through to the medium; true once it is there.
  virtual bool Flush() = 0;
  /// Gives it the other file's name, replacing that in the same instant. False when it could not.
  virtual bool TakePlace() = 0;
};

/// What has a name, with links followed.
enum class FileKind {
  None,
  Plain,
  Folder,
  Stream,  ///< a device, a pipe or a socket, or one of the process's own open files (/dev/stdout)
};

/// The content of a file, or why there is none.
struct FileBytes {
  enum class Fault { None, NotOpened, NotRead, NotPlain, TooLarge };

  Fault fault = Fault::None;
  std::string bytes = {};
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

  /// The sub-folders of a folder, without "." and "..", and its plain files that match `pattern` ("*" and
  /// what follows) whatever their case. A link is what it leads to.
  virtual FolderListing List(const std::filesystem::path& folder, std::string_view pattern) = 0;

  // When one of the following fails, errno gives the reason, or is 0 where the system has none.
  /// True for an entry of any kind, a link that leads nowhere included.
  virtual bool Exists(const std::filesystem::path& file) const = 0;
  virtual FileKind Kind(const std::filesystem::path& file) const = 0;
  /// What a symbolic link leads to, whether that exists or not; any other path as it is. Nothing where links
  /// lead in a circle.
  virtual std::optional<std::filesystem::path> Resolved(const std::filesystem::path& file) const = 0;
  /// Reads a plain file, or the nameless pipe that a shell hands over (/dev/stdin), of at most `limit` bytes.
  /// Never waits for somebody to write into a pipe that has a name.
  virtual FileBytes Read(const std::filesystem::path& file, size_t limit) const = 0;
  /// Deletes a file, never a folder.
  virtual bool Delete(const std::filesystem::path& file) = 0;
  /// Copies a file and flushes the copy. False when `to` exists, or when the copy fails, which leaves
  /// nothing of it.
  virtual bool Copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Copies a plain file, flushes the copy, and gives it the name `to` in one instant. It has the rights,
  /// owner, extended attributes and time of change of `from` as far as the system allows. What has that name
  /// already is replaced; without `replace` the copy fails then. A copy that fails leaves nothing behind.
  virtual bool CopyInPlace(const std::filesystem::path& from, const std::filesystem::path& to,
                           bool replace) = 0;

  /// Makes a file, in the same folder, to take the place of `target`, which may exist but is no link. From
  /// its first byte on it has the rights of what it replaces, and its owner and extended attributes as far as
  /// the system allows; or, with `userAlone`, nobody but the user may read it. Null when it cannot be made.
  virtual std::unique_ptr<NewFile> Make(const std::filesystem::path& target, bool userAlone) = 0;
  /// Opens a FileKind::Stream. Without `wait`, a pipe that nobody reads from is not opened, and writing fails
  /// where not all bytes are taken at once. Null when it cannot be opened.
  virtual std::unique_ptr<OutputFile> OpenStream(const std::filesystem::path& file, bool wait) = 0;
  /// Deletes the new files of this store that have not taken their place; none can do that any more. To be
  /// called, from any thread, when the process ends in the middle of its work.
  virtual void DeleteUnfinished() = 0;
  /// Deletes the new files that killed programs left in `folder`: only those that carry the mark of having
  /// been made there, and that no program works on.
  virtual void Sweep(const std::filesystem::path& folder) = 0;
  /// Writes the names in the folder through to the medium; true once they are there, and where that cannot be
  /// asked for.
  virtual bool FlushFolder(const std::filesystem::path& folder) = 0;
  /// Whether another file can take the place of `file`, links followed: false for a folder, for a file that
  /// somebody else alone may remove, and for one that is marked read-only.
  virtual bool CanRemove(const std::filesystem::path& file) const = 0;
  /// Whether the file, links followed, is marked as one that the user may not write.
  virtual bool IsReadOnly(const std::filesystem::path& file) const = 0;
  /// Renames a file within its folder; what was named `to` is replaced in the same instant.
  virtual bool Move(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

  /// Locks a file, which is made when missing; null while anybody else holds the lock. The file can be read,
  /// written, moved and deleted all the same. The lock ends with the process, however that ends.
  virtual std::unique_ptr<FileLock> TryLock(const std::filesystem::path& file) = 0;
};

}  // namespace trillomat
