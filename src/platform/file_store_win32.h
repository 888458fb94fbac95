// The file store over Windows' own drives and files. All calls take the system's wide paths, so names
// outside the code page work.
#pragma once

#include "files/file_store.h"

namespace trillomat {

class Win32FileStore : public FileStore {
 public:
  uint32_t Drives() override;
  std::string DriveText(char letter) const override;

  std::filesystem::path NativePath(std::string_view given) const override;
  std::optional<std::string> GivenPath(const std::filesystem::path& native) const override;

  FolderListing List(const std::filesystem::path& folder, std::string_view pattern) override;

  bool Exists(const std::filesystem::path& file) const override;
  FileKind Kind(const std::filesystem::path& file) const override;
  std::optional<std::filesystem::path> Resolved(const std::filesystem::path& file) const override;
  FileBytes Read(const std::filesystem::path& file, size_t limit) const override;
  bool Delete(const std::filesystem::path& file) override;
  bool Copy(const std::filesystem::path& from, const std::filesystem::path& to) override;
  bool CopyInPlace(const std::filesystem::path& from, const std::filesystem::path& to, bool replace) override;
  std::unique_ptr<NewFile> Make(const std::filesystem::path& target, bool userAlone) override;
  std::unique_ptr<OutputFile> OpenStream(const std::filesystem::path& file, bool wait) override;
  // The system deletes new files by itself (new_file_win32.h).
  void DeleteUnfinished() override {}
  void Sweep(const std::filesystem::path& /*folder*/) override {}
  bool FlushFolder(const std::filesystem::path& folder) override;
  bool CanRemove(const std::filesystem::path& file) const override;
  bool IsReadOnly(const std::filesystem::path& file) const override;
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override;
  std::unique_ptr<FileLock> TryLock(const std::filesystem::path& file) override;
};

}  // namespace trillomat
