#include "files/recent_files.h"

#include <algorithm>

#include "core/limits.h"
#include "files/path_text.h"

namespace trillomat {

void RecentFiles::Set(const std::vector<std::string>& paths) {
  files_.clear();
  std::for_each(paths.rbegin(), paths.rend(), [this](const std::string& path) {
    if (!path.empty()) Add(PathOfUtf8(path));
  });
}

std::vector<std::string> RecentFiles::Paths() const {
  std::vector<std::string> paths;
  for (const std::filesystem::path& file : files_) paths.push_back(Utf8OfPath(file));
  return paths;
}

void RecentFiles::Add(const std::filesystem::path& file) {
  const std::filesystem::path path = std::filesystem::absolute(file).lexically_normal();
  Drop(path);
  files_.insert(files_.begin(), path);
  if (files_.size() > kMostRecentFiles) files_.pop_back();
}

void RecentFiles::Drop(const std::filesystem::path& file) { std::erase(files_, file); }

}  // namespace trillomat
