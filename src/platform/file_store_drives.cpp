#include "platform/file_store_drives.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "core/ascii.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

constexpr char kHomeDrive = 'C';
constexpr char kFirstVolume = 'D';
constexpr char kRootDrive = 'Z';
constexpr std::string_view kForeign = "\\:";  // what a name of the given form cannot hold

// A field of the list of mounts: blank, tab, line feed and "\" stand there as "\" and three octal digits.
std::string Unescaped(std::string_view text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view digits = text.substr(i + 1, 3);
    if (text[i] == '\\' && digits.size() == 3 && digits.find_first_not_of("01234567") == digits.npos) {
      plain += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

bool IsBelow(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

bool IsRemovable(std::string_view mountPoint) {
  return mountPoint == "/mnt" || mountPoint.starts_with("/mnt/") || mountPoint.starts_with("/media/") ||
         mountPoint.starts_with("/run/media/");
}

// Takes the first field from `text`. Without streams, because this is a part of every start of the program.
std::string_view TakeField(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const std::string_view field = text.substr(0, text.find_first_of(" \t"));
  text.remove_prefix(field.size());
  return field;
}

// The names of `native` below `folder`, each with a "\" in front; nothing when one of them cannot be written
// so.
std::optional<std::string> NamesBelow(const fs::path& native, const fs::path& folder) {
  std::string names;
  auto name = std::next(native.begin(), std::distance(folder.begin(), folder.end()));
  for (; name != native.end(); ++name) {
    if (name->native().find_first_of(kForeign) != std::string::npos) return std::nullopt;
    names += '\\' + name->native();
  }
  return names.empty() ? "\\" : names;
}

fs::path WithoutLastSlash(const fs::path& path) {
  const fs::path normal = path.lexically_normal();
  return normal.has_filename() || !normal.has_relative_path() ? normal : normal.parent_path();
}

}  // namespace

fs::path HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

std::vector<fs::path> RemovableVolumes(std::string_view mounts) {
  std::vector<fs::path> volumes;
  while (!mounts.empty()) {
    std::string_view line = mounts.substr(0, mounts.find('\n'));
    mounts.remove_prefix(std::min(line.size() + 1, mounts.size()));
    TakeField(line);  // the device
    if (std::string folder = Unescaped(TakeField(line)); IsRemovable(folder))
      volumes.emplace_back(std::move(folder));
  }
  return volumes;
}

DriveMap::DriveMap(const fs::path& home, fs::path mounts)
    : mounts_(std::move(mounts)), folders_{{kHomeDrive, WithoutLastSlash(home)}, {kRootDrive, "/"}} {
  Refresh();
}

uint32_t DriveMap::Refresh() {
  std::ifstream in(mounts_);
  std::ostringstream text;
  text << in.rdbuf();
  std::vector<fs::path> volumes = RemovableVolumes(text.str());
  for (char letter = kFirstVolume; letter < kRootDrive; ++letter) {
    if (!folders_.contains(letter)) continue;
    const auto still = std::find(volumes.begin(), volumes.end(), folders_[letter]);
    if (still == volumes.end()) {
      folders_.erase(letter);
    } else {
      volumes.erase(still);
    }
  }
  char letter = kFirstVolume;
  for (const fs::path& volume : volumes) {
    while (letter < kRootDrive && folders_.contains(letter)) ++letter;
    if (letter < kRootDrive) folders_[letter] = volume;
  }
  uint32_t mask = 0;
  for (const auto& drive : folders_) mask |= 1U << (drive.first - 'A');
  return mask;
}

std::string DriveMap::Text(char letter) const {
  const auto drive = folders_.find(ToUpper(letter));
  const std::string name = std::string(1, letter) + ":";
  return drive == folders_.end() ? name : name + " " + drive->second.native();
}

fs::path DriveMap::Native(std::string_view given) const {
  constexpr std::string_view kForbidden{"/:\0", 3};
  if (given.size() < 3 || given.substr(1, 2) != ":\\") return {};
  const auto drive = folders_.find(ToUpper(given.front()));
  if (drive == folders_.end()) return {};
  fs::path native = drive->second;
  for (given.remove_prefix(3); !given.empty();) {
    const std::string_view name = given.substr(0, given.find('\\'));
    if (name == "." || name == ".." || name.find_first_of(kForbidden) != name.npos) return {};
    native /= name;
    given.remove_prefix(std::min(name.size() + 1, given.size()));
  }
  return native;
}

std::optional<std::string> DriveMap::Given(const fs::path& native) const {
  std::error_code unknown;
  const fs::path path = fs::absolute(native, unknown).lexically_normal();
  if (unknown || path.empty()) return std::nullopt;
  const std::pair<const char, fs::path>* deepest = nullptr;
  for (const auto& drive : folders_) {
    if (!IsBelow(path, drive.second)) continue;
    if (deepest == nullptr || drive.second.native().size() > deepest->second.native().size())
      deepest = &drive;
  }
  if (deepest == nullptr) return std::nullopt;
  const auto names = NamesBelow(path, deepest->second);
  if (!names) return std::nullopt;
  return std::string(1, deepest->first) + ":" + *names;
}

}  // namespace trillomat
