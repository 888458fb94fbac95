// A folder of its own for a test, deleted with everything in it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace trillomat {

class TempFolder {
 public:
  TempFolder() {
    do {
      path_ = std::filesystem::temp_directory_path() /
              ("trillomat-test-" + std::to_string(std::random_device{}()));
    } while (!std::filesystem::create_directory(path_));
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code gone;
    std::filesystem::remove_all(path_, gone);
  }

  const std::filesystem::path& Path() const { return path_; }
  /// Names are UTF-8 where the system's are text.
  std::filesystem::path operator/(std::string_view name) const {
    return path_ / std::u8string(name.begin(), name.end());
  }

  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(*this / name, std::ios::binary) << text;
  }
  void MakeFolder(const std::string& name) const { std::filesystem::create_directories(*this / name); }

  std::string Read(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(*this / name, std::ios::binary).rdbuf();
    return text.str();
  }

  /// The names in the folder, sorted.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace trillomat
