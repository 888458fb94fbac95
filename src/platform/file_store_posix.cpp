#include "platform/file_store_posix.h"

#include <dirent.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <array>
#include <cerrno>

#include "core/ascii.h"
#include "platform/descriptor_posix.h"
#include "platform/file_names.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

class PosixLock : public FileLock {
 public:
  explicit PosixLock(const fs::path& file) : file_(file, O_RDWR | O_CREAT | O_NONBLOCK, 0600) {
    held_ = file_ && flock(*file_, LOCK_EX | LOCK_NB) == 0;
  }
  bool Held() const { return held_; }

 private:
  Descriptor file_;
  bool held_ = false;
};

// The kind of the entry, or of what it leads to when it is a link; 0 when that cannot be told.
mode_t KindOf(const fs::path& folder, const dirent& entry) {
  if (entry.d_type == DT_DIR) return S_IFDIR;
  if (entry.d_type == DT_REG) return S_IFREG;
  struct stat found {};
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return 0;
  return stat((folder / entry.d_name).c_str(), &found) == 0 ? found.st_mode & S_IFMT : 0;
}

void AddName(std::string_view name, FolderListing::Names& found) {
  const bool canBeGiven = name.find_first_of("\\:") == name.npos;
  (canBeGiven ? found.names : found.leftOut).emplace_back(name);
}

// Adds the entry to the folders or to the files, if it is one of them.
void AddEntry(const fs::path& folder, const dirent& entry, std::string_view ending, FolderListing& listing) {
  const std::string_view name = entry.d_name;
  if (name == "." || name == "..") return;
  const mode_t kind = KindOf(folder, entry);
  if (kind == S_IFDIR) AddName(name, listing.folders);
  if (kind == S_IFREG && EndsNoCase(name, ending)) AddName(name, listing.files);
}

class PosixStream : public OutputFile {
 public:
  explicit PosixStream(Descriptor file) : file_(std::move(file)) {}
  bool Write(std::string_view bytes) override { return WriteAll(*file_, bytes); }

 private:
  Descriptor file_;
};

// The process's own open file that the path stands for (/proc/self/fd/1, to which /dev/stdout is a link);
// nothing for other paths. If such a file were opened anew, it would be written from its beginning.
std::optional<int> OwnDescriptor(const fs::path& file) {
  const std::string name = file.filename().native();
  std::error_code none;
  const bool own = fs::equivalent(file.parent_path(), "/proc/self/fd", none);
  const bool number = name.size() < 9 && IsAllDigits(name);
  if (!own || !number || fcntl(std::stoi(name), F_GETFD) < 0) return std::nullopt;
  return std::stoi(name);
}

// Whether it is a pipe without a name, such as a shell makes: it always has somebody at its other end.
bool IsNamelessPipe(int file) {
  struct statfs system {};
  return fstatfs(file, &system) == 0 && system.f_type == PIPEFS_MAGIC;
}

FileBytes ReadAll(int file, size_t limit) {
  FileBytes read;
  std::array<char, 16384> block{};  // small, because most files are, and each page of it takes time
  while (true) {
    const ssize_t count = Uninterrupted([&] { return ::read(file, block.data(), block.size()); });
    if (count < 0) return {FileBytes::Fault::NotRead};
    if (count == 0) return read;
    if (static_cast<size_t>(count) > limit - read.bytes.size()) return {FileBytes::Fault::TooLarge};
    read.bytes.append(block.data(), static_cast<size_t>(count));
  }
}

}  // namespace

FolderListing PosixFileStore::List(const fs::path& folder, std::string_view pattern) {
  FolderListing listing;
  DIR* const stream = folder.empty() ? nullptr : opendir(folder.c_str());
  if (stream == nullptr) return {.folders = {}, .files = {}, .complete = false};
  errno = 0;
  while (const dirent* entry = readdir(stream)) {
    AddEntry(folder, *entry, EndingOf(pattern), listing);
    errno = 0;
  }
  listing.complete = errno == 0;
  closedir(stream);
  SortNoCase(listing.folders.names);
  SortNoCase(listing.files.names);
  return listing;
}

bool PosixFileStore::Exists(const fs::path& file) const {
  struct stat found {};
  return lstat(file.c_str(), &found) == 0;
}

FileKind PosixFileStore::Kind(const fs::path& file) const {
  const auto target = Resolved(file);
  struct stat found {};
  if (!target) return FileKind::None;
  if (OwnDescriptor(*target)) return FileKind::Stream;
  if (stat(target->c_str(), &found) != 0) return FileKind::None;
  if (S_ISREG(found.st_mode)) return FileKind::Plain;
  return S_ISDIR(found.st_mode) ? FileKind::Folder : FileKind::Stream;
}

std::optional<fs::path> PosixFileStore::Resolved(const fs::path& file) const {
  constexpr int kMostLinks = 40;
  fs::path target = file;
  std::error_code unreadable;
  for (int i = 0; i < kMostLinks; ++i) {
    if (OwnDescriptor(target) || !fs::is_symlink(target, unreadable)) return target;
    target = target.parent_path() / fs::read_symlink(target, unreadable);
  }
  errno = ELOOP;
  return std::nullopt;
}

FileBytes PosixFileStore::Read(const fs::path& file, size_t limit) const {
  const Descriptor in(file, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat found {};
  if (!in || fstat(*in, &found) != 0) return {FileBytes::Fault::NotOpened};
  errno = 0;
  if (!S_ISREG(found.st_mode) && !(S_ISFIFO(found.st_mode) && IsNamelessPipe(*in)))
    return {FileBytes::Fault::NotPlain};
  if (S_ISREG(found.st_mode) && static_cast<uint64_t>(found.st_size) > limit)
    return {FileBytes::Fault::TooLarge};
  fcntl(*in, F_SETFL, 0);
  return ReadAll(*in, limit);
}

bool PosixFileStore::Delete(const fs::path& file) { return unlink(file.c_str()) == 0; }

bool PosixFileStore::Copy(const fs::path& from, const fs::path& to) {
  const Descriptor source(from, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat found {};
  if (!source || fstat(*source, &found) != 0 || !S_ISREG(found.st_mode)) return false;
  const Descriptor copy(to, O_WRONLY | O_CREAT | O_EXCL, 0600);
  if (!copy) return false;
  KeepRights(from, *copy);
  if (CopyBytes(*source, *copy) && copy.Flush() && FlushFolder(to.parent_path())) return true;
  Delete(to);
  return false;
}

std::unique_ptr<OutputFile> PosixFileStore::OpenStream(const fs::path& file, bool wait) {
  const auto own = OwnDescriptor(file);
  Descriptor stream = own ? Descriptor(fcntl(*own, F_DUPFD_CLOEXEC, 0))
                          : Descriptor(file, O_WRONLY | O_NOCTTY | (wait ? 0 : O_NONBLOCK));
  if (!stream) return nullptr;
  return std::make_unique<PosixStream>(std::move(stream));
}

bool PosixFileStore::FlushFolder(const fs::path& folder) {
  return Descriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY).Flush() || errno == EINVAL;
}

// In a folder like /tmp (with the sticky bit) everybody may write, but only remove files of his own.
bool PosixFileStore::CanRemove(const fs::path& file) const {
  const auto target = Resolved(file);
  struct stat found {};
  struct stat folder {};
  if (!target || IsReadOnly(*target)) return false;
  if (lstat(target->c_str(), &found) != 0) return true;
  if (S_ISDIR(found.st_mode)) return false;
  const fs::path parent = target->parent_path();
  if (stat(parent.empty() ? "." : parent.c_str(), &folder) != 0 || (folder.st_mode & S_ISVTX) == 0)
    return true;
  const uid_t user = geteuid();
  return user == 0 || user == found.st_uid || user == folder.st_uid;
}

// Files without a right to write count as marked for the superuser too, whom the system lets write anything.
bool PosixFileStore::IsReadOnly(const fs::path& file) const {
  struct stat found {};
  if (stat(file.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return false;
  return (found.st_mode & 0222U) == 0 || faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0;
}

bool PosixFileStore::Move(const fs::path& from, const fs::path& to) {
  return Uninterrupted([&] { return rename(from.c_str(), to.c_str()); }) == 0;
}

std::unique_ptr<FileLock> PosixFileStore::TryLock(const fs::path& file) {
  auto lock = std::make_unique<PosixLock>(file);
  if (!lock->Held()) return nullptr;
  return lock;
}

}  // namespace trillomat
