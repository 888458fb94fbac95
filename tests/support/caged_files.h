// A file store that changes nothing outside of the test's own folders, wherever a dialog leads it.
#pragma once

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "support/folder_store.h"

namespace trillomat {

/// Has drive C: alone, laid over `folder`; what is neither below that nor below one of `others` is refused as
/// the system refuses it.
class CagedFiles : public FolderStore {
 public:
  explicit CagedFiles(const std::filesystem::path& folder, std::vector<std::filesystem::path> others = {})
      : FolderStore(folder), cage_(std::move(others)) {
    cage_.push_back(folder);
  }

  uint32_t Drives() override { return FolderStore::Drives() & 1U << ('C' - 'A'); }
  bool Delete(const std::filesystem::path& file) override {
    return Inside(file) && FolderStore::Delete(file);
  }
  bool Copy(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Inside(to) && FolderStore::Copy(from, to);
  }
  bool CopyInPlace(const std::filesystem::path& from, const std::filesystem::path& to,
                   bool replace) override {
    return Inside(to) && FolderStore::CopyInPlace(from, to, replace);
  }
  std::unique_ptr<NewFile> Make(const std::filesystem::path& target, bool userAlone) override {
    return Inside(target) ? FolderStore::Make(target, userAlone) : nullptr;
  }
  std::unique_ptr<OutputFile> OpenStream(const std::filesystem::path& file, bool wait) override {
    return Inside(file) ? FolderStore::OpenStream(file, wait) : nullptr;
  }
  void Sweep(const std::filesystem::path& folder) override {
    if (Inside(folder)) FolderStore::Sweep(folder);
  }
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Inside(from) && Inside(to) && FolderStore::Move(from, to);
  }
  std::unique_ptr<FileLock> TryLock(const std::filesystem::path& file) override {
    return Inside(file) ? FolderStore::TryLock(file) : nullptr;
  }
  /// Nobody cuts the power of a test.
  bool FlushFolder(const std::filesystem::path& /*folder*/) override { return true; }

 private:
  bool Inside(const std::filesystem::path& path) const {
    std::error_code unknown;
    const auto real = std::filesystem::absolute(path, unknown).lexically_normal();
    const bool inside = std::any_of(cage_.begin(), cage_.end(), [&real](const std::filesystem::path& folder) {
      return std::mismatch(folder.begin(), folder.end(), real.begin(), real.end()).first == folder.end();
    });
    if (!inside) errno = EACCES;
    return inside;
  }

  std::vector<std::filesystem::path> cage_;
};

}  // namespace trillomat
