// The system's file store with drive C: laid over a folder of the test's own.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#ifdef _WIN32
#include "platform/file_store_win32.h"
#else
#include "platform/file_store_posix.h"
#endif

namespace trillomat {

#ifdef _WIN32
class FolderStore : public Win32FileStore {
 public:
  explicit FolderStore(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::filesystem::path NativePath(std::string_view given) const override {
    const std::filesystem::path native = Win32FileStore::NativePath(given);
    if (native.empty()) return native;
    return native.has_filename() ? folder_ / native.relative_path() : folder_;
  }
  std::optional<std::string> GivenPath(const std::filesystem::path& native) const override {
    return Win32FileStore::GivenPath(L"C:\\" / native.lexically_relative(folder_));
  }

 private:
  std::filesystem::path folder_;
};
#else
class FolderStore : public PosixFileStore {
 public:
  explicit FolderStore(const std::filesystem::path& folder) : PosixFileStore(DriveMap(folder, "/dev/null")) {}
};
#endif

}  // namespace trillomat
