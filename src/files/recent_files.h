// The files that were opened or saved last, the newest first, none twice.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace trillomat {

class RecentFiles {
 public:
  /// At start, as they were remembered: absolute paths in the system's bytes (UTF-8 where its names are
  /// text). Empty texts and those beyond kMostRecentFiles are left out.
  void Set(const std::vector<std::string>& paths);
  const std::vector<std::filesystem::path>& Files() const { return files_; }
  /// The same list as Set takes it.
  std::vector<std::string> Paths() const;

  /// Makes it the first; the list drops what is beyond kMostRecentFiles.
  void Add(const std::filesystem::path& file);
  void Drop(const std::filesystem::path& file);

 private:
  std::vector<std::filesystem::path> files_;
};

}  // namespace trillomat
