// The files that were opened or saved last, the newest first, none twice.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace trillomat {

class RecentFiles {
 public:
  static constexpr size_t kMost = 10;

  /// At start, as they were remembered: absolute paths in the system's bytes (UTF-8 where its names are
  /// text). Empty texts and those beyond kMost are left out.
  void Set(const std::vector<std::string>& paths);
  const std::vector<std::filesystem::path>& Files() const { return files_; }
  /// To be remembered.
  std::vector<std::string> Paths() const;

  void Add(const std::filesystem::path& file);
  void Drop(const std::filesystem::path& file);

 private:
  std::vector<std::filesystem::path> files_;
};

}  // namespace trillomat
