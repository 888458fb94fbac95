#include "files/replace_file.h"

#include <cerrno>
#include <fstream>
#include <memory>
#include <optional>
#include <system_error>

#include "files/path_text.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using Outcome = Replacement::Outcome;

constexpr std::string_view kPrefix = ".saving-";
constexpr std::string_view kSuffix = ".trillomat";

// What the system says of the last error, as far as it says anything.
std::string SystemWords() { return errno == 0 ? "" : std::generic_category().message(errno); }

// What a symbolic link leads to, whether that is there or not. Nothing where links lead in a circle.
std::optional<fs::path> FollowLinks(fs::path file) {
  constexpr int kMostLinks = 40;
  std::error_code unreadable;
  for (int i = 0; i < kMostLinks; ++i) {
    if (!fs::is_symlink(file, unreadable)) return file;
    file = file.parent_path() / fs::read_symlink(file, unreadable);
  }
  errno = ELOOP;
  return std::nullopt;
}

// What is there and no plain file takes the bytes itself, or says that it does not.
bool IsWrittenInto(const fs::path& file) {
  std::error_code unreadable;
  const fs::file_status found = fs::status(file, unreadable);
  return fs::exists(found) && !fs::is_regular_file(found);
}

// A name that no other file of this or another program has: whoever makes it owns it, which keeps two
// programs that save at the same time from writing to one file.
std::optional<fs::path> CreateBeside(const fs::path& file, FileStore& store) {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    const fs::path beside =
        file.parent_path() / (std::string(kPrefix) + std::to_string(i) + std::string(kSuffix));
    errno = 0;
    if (store.Create(beside)) return beside;
    const int code = errno;
    const bool taken = store.Exists(beside);
    errno = code;
    if (!taken) return std::nullopt;
  }
  return std::nullopt;
}

// Deletes what is left of the new file unless it found its place. Locked meanwhile, so that no other program
// takes it for what a killed one has left.
class NewFile {
 public:
  NewFile(const fs::path& target, FileStore& store)
      : store_(store), path_(CreateBeside(target, store)), lock_(path_ ? store.TryLock(*path_) : nullptr) {}
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (path_) store_.Delete(*path_);
  }

  explicit operator bool() const { return path_.has_value(); }
  const fs::path& operator*() const { return *path_; }

  bool MoveTo(const fs::path& target) {
    errno = 0;
    if (!store_.Move(*path_, target)) return false;
    path_.reset();
    return true;
  }

 private:
  FileStore& store_;
  std::optional<fs::path> path_;
  std::unique_ptr<FileLock> lock_;
};

Replacement WriteTo(const fs::path& file, const WriteContent& write) {
  errno = 0;
  std::ofstream stream(file, std::ios::binary);
  if (stream.is_open()) write(stream);
  stream.close();
  if (!stream) return {Outcome::NotWritten, SystemWords()};
  return {};
}

}  // namespace

Replacement ReplaceFile(const fs::path& file, FileStore& store, const WriteContent& write) {
  const auto target = FollowLinks(file);
  if (!target) return {Outcome::NotMade, SystemWords()};
  if (IsWrittenInto(*target)) return WriteTo(*target, write);
  NewFile beside(*target, store);
  if (!beside) return {Outcome::NotMade, SystemWords()};
  if (auto written = WriteTo(*beside, write); !written) return written;
  errno = 0;
  if (!store.Flush(*beside)) return {Outcome::NotFlushed, SystemWords()};
  store.KeepRights(*target, *beside);
  if (!beside.MoveTo(*target)) return {Outcome::NotMoved, SystemWords()};
  errno = 0;
  if (!store.FlushFolder(target->parent_path())) return {Outcome::ReplacedUnflushed, SystemWords()};
  return {};
}

Replacement ReplaceFile(const fs::path& file, FileStore& store, std::string_view bytes) {
  return ReplaceFile(file, store, [bytes](std::ostream& stream) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  });
}

void SweepLeftovers(const fs::path& folder, FileStore& store) {
  for (const std::string& name : store.ListFiles(folder, "*" + std::string(kSuffix)).names) {
    if (!name.starts_with(kPrefix)) continue;
    const auto abandoned = store.TryLock(folder / PathOfUtf8(name));
    if (abandoned) store.Delete(folder / PathOfUtf8(name));
  }
}

}  // namespace trillomat
