#include "platform/new_file_posix.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "platform/descriptor_posix.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".saving-";
constexpr std::string_view kSuffix = ".trillomat";
constexpr std::string_view kUnmarked = ".saving-new-";  // prefix for the instant until the inode is known
constexpr int kMostNames = 100;

// The beginning of a new file's name, which holds its inode number.
std::string MarkOf(const struct stat& file) {
  std::array<char, 32> inode{};
  std::snprintf(inode.data(), inode.size(), "%llx-", static_cast<unsigned long long>(file.st_ino));
  return std::string(kPrefix) + inode.data();
}

fs::path FolderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : "."; }

void CopyAttribute(const fs::path& from, int to, const char* name) {
  const ssize_t size = getxattr(from.c_str(), name, nullptr, 0);
  if (size < 0) return;
  std::vector<char> value(static_cast<size_t>(size));
  const ssize_t count = getxattr(from.c_str(), name, value.data(), value.size());
  if (count >= 0) fsetxattr(to, name, value.data(), static_cast<size_t>(count), 0);
}

// Copies the extended attributes, of which the access list is one.
void CopyAttributes(const fs::path& from, int to) {
  const ssize_t size = listxattr(from.c_str(), nullptr, 0);
  if (size <= 0) return;
  std::vector<char> names(static_cast<size_t>(size));
  const ssize_t count = listxattr(from.c_str(), names.data(), names.size());
  std::string_view left(names.data(), count > 0 ? static_cast<size_t>(count) : 0);
  while (!left.empty()) {
    const std::string name(left.substr(0, left.find('\0')));
    CopyAttribute(from, to, name.c_str());
    left.remove_prefix(std::min(name.size() + 1, left.size()));
  }
}

class PosixNewFile : public NewFile {
 public:
  PosixNewFile(fs::path target, bool userAlone, UnfinishedFiles& unfinished);
  /// A copy of `from`, whose bytes are still to be written.
  PosixNewFile(const fs::path& from, fs::path target, UnfinishedFiles& unfinished);
  ~PosixNewFile() override;

  explicit operator bool() const { return static_cast<bool>(file_); }

  bool Write(std::string_view bytes) override { return WriteAll(*file_, bytes); }
  bool Flush() override { return file_.Flush(); }
  bool TakePlace() override { return TakePlace(true); }
  bool TakePlace(bool replace);
  int operator*() const { return *file_; }

 private:
  void Open();
  void KeepTime() const;
  bool Link(const fs::path& name) const;
  bool GiveName();
  bool CopyToNamed();
  Descriptor MakeNamed();
  bool Rename(const fs::path& from, const fs::path& to, bool replace) const;
  void Prepare(int file) const;

  fs::path target_;
  bool replaces_;    ///< a plain file has the target's name
  bool ownRights_;   ///< it is made for the user alone, and gets the rights of `rights_`, if any, afterwards
  fs::path rights_;  ///< the file whose rights it gets; empty for those that new files have
  bool copies_ = false;
  UnfinishedFiles& unfinished_;
  std::optional<fs::path> name_;  ///< nothing as long as it has none
  Descriptor file_;
};

bool IsPlain(const fs::path& file) {
  struct stat found {};
  return stat(file.c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

PosixNewFile::PosixNewFile(fs::path target, bool userAlone, UnfinishedFiles& unfinished)
    : target_(std::move(target)),
      replaces_(IsPlain(target_)),
      ownRights_(userAlone || replaces_),
      rights_(replaces_ && !userAlone ? target_ : fs::path()),
      unfinished_(unfinished) {
  Open();
}

PosixNewFile::PosixNewFile(const fs::path& from, fs::path target, UnfinishedFiles& unfinished)
    : target_(std::move(target)),
      replaces_(IsPlain(target_)),
      ownRights_(true),
      rights_(from),
      copies_(true),
      unfinished_(unfinished) {
  Open();
}

void PosixNewFile::Open() {
#ifdef O_TMPFILE
  file_ = Descriptor(FolderOf(target_), O_TMPFILE | O_RDWR, ownRights_ ? 0600 : 0666);
#endif
  if (!file_) file_ = MakeNamed();
  if (file_ && !name_) Prepare(*file_);
}

PosixNewFile::~PosixNewFile() {
  const int code = errno;
  if (name_) {
    unfinished_.Do([this](std::set<fs::path>& names) {
      names.erase(*name_);
      return unlink(name_->c_str()) == 0;
    });
  }
  errno = code;
}

// Locks the file and sets its rights: before the first byte is in it, and before it has a name that
// SweepNewFiles knows.
void PosixNewFile::Prepare(int file) const {
  flock(file, LOCK_EX | LOCK_NB);
  if (!rights_.empty()) KeepRights(rights_, file);
}

bool PosixNewFile::TakePlace(bool replace) {
  KeepTime();
  if (!name_ && (!replaces_ || !replace)) {
    if (Link(target_)) return true;
    if (!replace && errno == EEXIST) return false;
  }
  if (!name_ && !GiveName()) return false;
  KeepTime();
  return unfinished_.Do([this, replace](std::set<fs::path>& names) {
    if (!Rename(*name_, target_, replace)) return false;
    names.erase(*name_);
    name_.reset();
    return true;
  });
}

// Gives a copy the times of the original; to be called after the last write.
void PosixNewFile::KeepTime() const {
  struct stat found {};
  if (!copies_ || stat(rights_.c_str(), &found) != 0) return;
  const std::array<timespec, 2> times{found.st_atim, found.st_mtim};
  futimens(*file_, times.data());
}

// Gives the open file a name, which a process can do by way of /proc.
bool PosixNewFile::Link(const fs::path& name) const {
  const std::string self = "/proc/self/fd/" + std::to_string(*file_);
  return Uninterrupted(
             [&] { return linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW); }) == 0;
}

bool PosixNewFile::GiveName() {
  struct stat found {};
  if (fstat(*file_, &found) != 0) return false;
  for (int i = 0; i < kMostNames; ++i) {
    const fs::path name = FolderOf(target_) / (MarkOf(found) + std::to_string(i) + std::string(kSuffix));
    const bool linked = unfinished_.Do([&](std::set<fs::path>& names) {
      if (!Link(name)) return false;
      names.insert(*(name_ = name));
      return true;
    });
    if (linked) return true;
    if (errno != EEXIST) break;
  }
  return CopyToNamed();
}

// Goes on with a copy that has a name: for media on which a file without a name can be made, but not be given
// one.
bool PosixNewFile::CopyToNamed() {
  Descriptor named = MakeNamed();
  if (!named || lseek(*file_, 0, SEEK_SET) != 0) return false;
  if (!CopyBytes(*file_, *named) || !named.Flush()) return false;
  file_ = std::move(named);
  return true;
}

Descriptor PosixNewFile::MakeNamed() {
  const fs::path folder = FolderOf(target_);
  const std::string process = std::string(kUnmarked) + std::to_string(getpid()) + "-";
  Descriptor file;
  for (int i = 0; i < kMostNames && !file && (i == 0 || errno == EEXIST); ++i) {
    const fs::path name = folder / (process + std::to_string(i) + std::string(kSuffix));
    unfinished_.Do([&](std::set<fs::path>& names) {
      file = Descriptor(name, O_RDWR | O_CREAT | O_EXCL, ownRights_ ? 0600 : 0666);
      if (!file) return false;
      Prepare(*file);
      struct stat made {};
      fstat(*file, &made);
      const fs::path marked = folder / (MarkOf(made) + "0" + std::string(kSuffix));
      names.insert(*(name_ = Rename(name, marked, false) ? marked : name));
      return true;
    });
  }
  return file;
}

// Not every medium can rename in one step without replacing; there the name is looked for before.
bool PosixNewFile::Rename(const fs::path& from, const fs::path& to, bool replace) const {
  const auto plainly = [&] { return rename(from.c_str(), to.c_str()); };
  const auto toFree = [&] {
    return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  };
  if (replace) return Uninterrupted(plainly) == 0;
  if (Uninterrupted(toFree) == 0) return true;
  struct stat found {};
  return errno == EINVAL && lstat(to.c_str(), &found) != 0 && Uninterrupted(plainly) == 0;
}

// Whether it is a new file that was made here, by a program that no longer runs.
bool IsAbandoned(const fs::path& file) {
  const Descriptor opened(file, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  struct stat found {};
  if (!opened || fstat(*opened, &found) != 0 || !S_ISREG(found.st_mode)) return false;
  const std::string name = file.filename().native();
  const bool isNew = name.starts_with(kUnmarked) && found.st_size == 0;
  if (!isNew && !name.starts_with(MarkOf(found))) return false;
  return flock(*opened, LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

void UnfinishedFiles::End() {
  const std::lock_guard guard(lock_);
  ended_ = true;
  for (const fs::path& name : names_) unlink(name.c_str());
  names_.clear();
}

std::unique_ptr<NewFile> MakeNewFile(const fs::path& target, bool userAlone, UnfinishedFiles& unfinished) {
  auto file = std::make_unique<PosixNewFile>(target, userAlone, unfinished);
  if (!*file) return nullptr;
  return file;
}

bool CopyNewFile(const fs::path& from, const fs::path& to, bool replace, UnfinishedFiles& unfinished) {
  const Descriptor source(from, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat found {};
  if (!source || fstat(*source, &found) != 0) return false;
  errno = EINVAL;
  if (!S_ISREG(found.st_mode)) return false;
  PosixNewFile copy(from, to, unfinished);
  if (!copy || !CopyBytes(*source, *copy) || !copy.Flush() || !copy.TakePlace(replace)) return false;
  Descriptor(FolderOf(to), O_RDONLY | O_DIRECTORY).Flush();
  return true;
}

void SweepNewFiles(const fs::path& folder) {
  std::error_code unreadable;
  for (fs::directory_iterator entry(folder, unreadable), end; !unreadable && entry != end;
       entry.increment(unreadable)) {
    const std::string name = entry->path().filename().native();
    const bool called = name.starts_with(kPrefix) && name.ends_with(kSuffix);
    if (called && IsAbandoned(entry->path())) unlink(entry->path().c_str());
  }
}

// The owner comes first, because a change of owner takes rights away. Where the owner cannot be changed, the
// group may still be.
void KeepRights(const fs::path& from, int to) {
  struct stat found {};
  if (stat(from.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return;
  constexpr uid_t kUnchanged = static_cast<uid_t>(-1);
  const bool owned = fchown(to, found.st_uid, found.st_gid) == 0 || fchown(to, kUnchanged, found.st_gid) == 0;
  CopyAttributes(from, to);
  // The rights of another group must not go to the group that it has.
  fchmod(to, found.st_mode & (owned ? 0777U : 0707U));
}

bool CopyBytes(int from, int to) {
  std::array<char, 65536> block{};
  while (true) {
    const ssize_t count = Uninterrupted([&] { return read(from, block.data(), block.size()); });
    if (count <= 0) return count == 0;
    if (!WriteAll(to, {block.data(), static_cast<size_t>(count)})) return false;
  }
}

}  // namespace trillomat
