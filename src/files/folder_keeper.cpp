#include "files/folder_keeper.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include "files/path_text.h"
#include "files/replace_file.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// The number in front of "-"; nothing for a file that somebody else put there.
std::optional<uint64_t> NumberOf(const std::string& name) {
  uint64_t number = 0;
  const char* const end = name.data() + name.size();
  const auto [rest, fault] = std::from_chars(name.data(), end, number);
  return fault == std::errc() && rest != end && *rest == '-' ? std::optional(number) : std::nullopt;
}

// The file's name, shortened in the middle if a number in front could make it longer than a system allows.
std::string ShortName(const fs::path& file) {
  constexpr size_t kMostBytes = 200;
  const std::string name = Utf8OfPath(file.filename());
  return name.size() <= kMostBytes
             ? name
             : name.substr(0, kMostBytes / 2) + name.substr(name.size() - kMostBytes / 2);
}

}  // namespace

std::optional<fs::path> FolderKeeper::Keep(const fs::path& file, How how) {
  constexpr int kMostTries = 100;
  errno = 0;
  if (folder_.empty() || how == How::Move) return std::nullopt;
  std::error_code fault;
  errno = EFBIG;
  if (fs::file_size(file, fault) > kLargestFile && !fault) return std::nullopt;
  errno = 0;
  MakePrivateFolder(folder_);
  store_.Sweep(folder_);
  const std::vector<Entry> entries = Entries();
  uint64_t number = entries.empty() ? 1 : entries.back().number + 1;
  for (int i = 0; i < kMostTries; ++i, ++number) {
    fs::path kept = folder_ / PathOfUtf8(std::to_string(number) + "-" + ShortName(file));
    const bool taken = store_.Exists(kept);
    if (!taken && store_.CopyInPlace(file, kept, false)) {
      DropOldest();
      return kept;
    }
    if (!taken && !store_.Exists(kept)) break;  // it failed, and not because another program took the name
  }
  return std::nullopt;
}

// The kept files, the oldest first.
std::vector<FolderKeeper::Entry> FolderKeeper::Entries() const {
  std::vector<Entry> entries;
  std::error_code fault;
  for (fs::directory_iterator entry(folder_, fault), end; !fault && entry != end; entry.increment(fault)) {
    const auto number = NumberOf(Utf8OfPath(entry->path().filename()));
    std::error_code unknown;
    const uint64_t size = entry->file_size(unknown);
    if (number && !unknown) entries.push_back({*number, entry->path(), size});
  }
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return a.number < b.number; });
  return entries;
}

void FolderKeeper::DropOldest() {
  std::vector<Entry> entries = Entries();
  uint64_t bytes = 0;
  size_t files = 0;
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    bytes += entry->size;
    if (++files > kMostFiles || bytes > kMostBytes) store_.Delete(entry->file);
  }
}

}  // namespace trillomat
