#include "platform/file_store_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/file_names.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// An open file, closed when it goes.
class Descriptor {
 public:
  Descriptor(const fs::path& file, int flags, mode_t rights = 0)
      : number_(open(file.c_str(), flags | O_CLOEXEC, rights)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  explicit operator bool() const { return number_ >= 0; }
  int operator*() const { return number_; }
  bool Flush() const { return number_ >= 0 && fsync(number_) == 0; }

 private:
  int number_;
};

class PosixLock : public FileLock {
 public:
  explicit PosixLock(const fs::path& file) : file_(file, O_RDWR | O_CREAT, 0600) {
    held_ = file_ && flock(*file_, LOCK_EX | LOCK_NB) == 0;
  }
  bool Held() const { return held_; }

 private:
  Descriptor file_;
  bool held_ = false;
};

// Of the entry, or of what it leads to when it is a link. 0 when neither can be told.
mode_t KindOf(const fs::path& folder, const dirent& entry) {
  if (entry.d_type == DT_DIR) return S_IFDIR;
  if (entry.d_type == DT_REG) return S_IFREG;
  struct stat found {};
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return 0;
  return stat((folder / entry.d_name).c_str(), &found) == 0 ? found.st_mode & S_IFMT : 0;
}

FolderListing List(const fs::path& folder, mode_t kind, std::string_view ending) {
  FolderListing listing;
  DIR* const stream = folder.empty() ? nullptr : opendir(folder.c_str());
  if (stream == nullptr) return {{}, {}, false};
  errno = 0;
  while (const dirent* entry = readdir(stream)) {
    const std::string_view name = entry->d_name;
    const bool matches = EndsNoCase(name, ending) && name != "." && name != "..";
    if (matches && KindOf(folder, *entry) == kind) {
      auto& names = name.find_first_of("\\:") == name.npos ? listing.names : listing.leftOut;
      names.emplace_back(name);
    }
    errno = 0;
  }
  listing.complete = errno == 0;
  closedir(stream);
  SortNoCase(listing.names);
  return listing;
}

// write(2) may take less than all of it.
bool WriteAll(int file, const char* bytes, size_t count) {
  while (count > 0) {
    const ssize_t written = write(file, bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    count -= static_cast<size_t>(written);
  }
  return true;
}

bool CopyBytes(int from, int to) {
  std::array<char, 65536> block{};
  while (true) {
    const ssize_t count = read(from, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
    if (!WriteAll(to, block.data(), static_cast<size_t>(count))) return false;
  }
}

}  // namespace

FolderListing PosixFileStore::ListFolders(const fs::path& folder) { return List(folder, S_IFDIR, {}); }

FolderListing PosixFileStore::ListFiles(const fs::path& folder, std::string_view pattern) {
  if (pattern.starts_with('*')) pattern.remove_prefix(1);
  return List(folder, S_IFREG, pattern);
}

bool PosixFileStore::Exists(const fs::path& file) const {
  struct stat found {};
  return lstat(file.c_str(), &found) == 0;
}

bool PosixFileStore::Delete(const fs::path& file) { return unlink(file.c_str()) == 0; }

bool PosixFileStore::Copy(const fs::path& from, const fs::path& to) {
  const Descriptor source(from, O_RDONLY);
  struct stat found {};
  if (!source || fstat(*source, &found) != 0 || !S_ISREG(found.st_mode)) return false;
  const Descriptor copy(to, O_WRONLY | O_CREAT | O_EXCL, found.st_mode & 0777U);
  if (!copy) return false;
  if (CopyBytes(*source, *copy) && copy.Flush() && FlushFolder(to.parent_path())) return true;
  Delete(to);
  return false;
}

bool PosixFileStore::Create(const fs::path& file) {
  return static_cast<bool>(Descriptor(file, O_WRONLY | O_CREAT | O_EXCL, 0666));
}

// The owner first, as a change of owner takes rights away. The group may be given where the owner may not.
void PosixFileStore::KeepRights(const fs::path& from, const fs::path& to) {
  struct stat found {};
  if (stat(from.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return;
  constexpr uid_t kUnchanged = static_cast<uid_t>(-1);
  const bool owned =
      chown(to.c_str(), found.st_uid, found.st_gid) == 0 || chown(to.c_str(), kUnchanged, found.st_gid) == 0;
  // Rights of a group that it could not be given are not those of the group that it has.
  chmod(to.c_str(), found.st_mode & (owned ? 0777U : 0707U));
}

bool PosixFileStore::Flush(const fs::path& file) { return Descriptor(file, O_RDONLY).Flush(); }

bool PosixFileStore::FlushFolder(const fs::path& folder) {
  return Descriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY).Flush() || errno == EINVAL;
}

// In a folder like /tmp everybody may write, but remove only what is one's own.
bool PosixFileStore::CanRemove(const fs::path& file) const {
  struct stat found {};
  struct stat folder {};
  if (lstat(file.c_str(), &found) != 0 || S_ISDIR(found.st_mode)) return false;
  const fs::path parent = file.parent_path();
  if (stat(parent.empty() ? "." : parent.c_str(), &folder) != 0 || (folder.st_mode & S_ISVTX) == 0)
    return true;
  const uid_t user = geteuid();
  return user == 0 || user == found.st_uid || user == folder.st_uid;
}

bool PosixFileStore::Move(const fs::path& from, const fs::path& to) {
  return rename(from.c_str(), to.c_str()) == 0;
}

std::unique_ptr<FileLock> PosixFileStore::TryLock(const fs::path& file) {
  auto lock = std::make_unique<PosixLock>(file);
  if (!lock->Held()) return nullptr;
  return lock;
}

}  // namespace trillomat
