#include "platform/trash_posix.h"

#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "core/ascii.h"
#include "platform/descriptor_posix.h"
#include "platform/user_folders_posix.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// The name of the file's `number`th copy in the trash: the first is as it is, the others have the number in
// front of the ending. Cut where there would be no room for what is added.
std::string NameInTrash(const fs::path& file, int number) {
  constexpr size_t kMostBytes = 200;
  std::string ending = file.extension().native();
  if (ending.size() > kMostBytes / 2) ending.clear();
  const std::string name = file.filename().native();
  const std::string stem = name.substr(0, std::min(kMostBytes, name.size()) - ending.size());
  return stem + (number == 1 ? "" : " " + std::to_string(number)) + ending;
}

// As paths stand in a URL.
std::string PercentEncoded(std::string_view path) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (Contains(kPlain, c)) {
      encoded += c;
    } else {
      encoded += {'%', kHexDigits[byte / 16], kHexDigits[byte % 16]};
    }
  }
  return encoded;
}

std::string InfoText(const fs::path& file) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &local);
  return "[Trash Info]\nPath=" + PercentEncoded(fs::absolute(file).native()) +
         "\nDeletionDate=" + date.data() + "\n";
}

// Deletes what a step that failed has made. errno still tells why that failed.
void Undo(const fs::path& file) {
  const int code = errno;
  unlink(file.c_str());
  errno = code;
}

}  // namespace

std::optional<fs::path> DesktopTrash() {
  const fs::path trash = UserFolder("XDG_DATA_HOME", ".local/share") / "Trash";
  const char* desktop = std::getenv("XDG_CURRENT_DESKTOP");
  std::error_code unreadable;
  const bool shown = desktop != nullptr && *desktop != '\0';
  return shown || fs::is_directory(trash, unreadable) ? std::optional(trash) : std::nullopt;
}

std::optional<fs::path> Trash::Keep(const fs::path& file, How how) {
  constexpr int kMostNames = 10000;
  if (!MakeFolders()) return std::nullopt;
  for (int i = 1; i <= kMostNames; ++i) {
    const std::string name = NameInTrash(file, i);
    fs::path kept = folder_ / "files" / name;
    if (store_.Exists(kept)) continue;  // somebody put it there without an info file
    if (MakeInfo(name, file)) {
      if (Put(file, kept, how)) return kept;
      Undo(InfoOf(name));
      return std::nullopt;
    }
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

bool Trash::MakeFolders() const {
  std::error_code fault;
  fs::create_directories(folder_.parent_path(), fault);
  for (const fs::path& folder : {folder_, folder_ / "files", folder_ / "info"}) {
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return false;
  }
  return true;
}

bool Trash::MakeInfo(const std::string& name, const fs::path& file) const {
  const Descriptor info(InfoOf(name), O_WRONLY | O_CREAT | O_EXCL, 0600);
  if (!info) return false;
  if (WriteAll(*info, InfoText(file)) && info.Flush()) return true;
  Undo(InfoOf(name));
  return false;
}

bool Trash::Put(const fs::path& file, const fs::path& kept, How how) {
  if (how == How::Copy) return store_.CopyInPlace(file, kept, false);
  if (!store_.Move(file, kept)) return false;
  store_.FlushFolder(kept.parent_path());
  store_.FlushFolder(file.parent_path());
  return true;
}

void Trash::Discard(const fs::path& kept) {
  if (store_.Delete(kept)) unlink(InfoOf(kept.filename().native()).c_str());
}

}  // namespace trillomat
