// The file store over POSIX, with drive letters laid over its one tree as compatibility layers do: C: is
// the home folder, Z: is "/", D: and on are the mounted removable volumes.
#pragma once

#include "files/file_store.h"
#include "platform/file_store_drives.h"
#include "platform/new_file_posix.h"

namespace trillomat {

class PosixFileStore : public FileStore {
 public:
  explicit PosixFileStore(DriveMap drives) : drives_(std::move(drives)) {}

  uint32_t Drives() override { return drives_.Refresh(); }
  std::string DriveText(char letter) const override { return drives_.Text(letter); }
  std::filesystem::path NativePath(std::string_view given) const override { return drives_.Native(given); }
  std::optional<std::string> GivenPath(const std::filesystem::path& native) const override {
    return drives_.Given(native);
  }

  FolderListing List(const std::filesystem::path& folder, std::string_view pattern) override;

  bool Exists(const std::filesystem::path& file) const override;
  FileKind Kind(const std::filesystem::path& file) const override;
  std::optional<std::filesystem::path> Resolved(const std::filesystem::path& file) const override;
  FileBytes Read(const std::filesystem::path& file, size_t limit) const override;
  bool Delete(const std::filesystem::path& file) override;
  bool Copy(const std::filesystem::path& from, const std::filesystem::path& to) override;
  bool CopyInPlace(const std::filesystem::path& from, const std::filesystem::path& to,
                   bool replace) override {
    return CopyNewFile(from, to, replace, unfinished_);
  }
  std::unique_ptr<NewFile> Make(const std::filesystem::path& target, bool userAlone) override {
    return MakeNewFile(target, userAlone, unfinished_);
  }
  std::unique_ptr<OutputFile> OpenStream(const std::filesystem::path& file, bool wait) override;
  void DeleteUnfinished() override { unfinished_.End(); }
  void Sweep(const std::filesystem::path& folder) override { SweepNewFiles(folder); }
  bool FlushFolder(const std::filesystem::path& folder) override;
  bool CanRemove(const std::filesystem::path& file) const override;
  bool IsReadOnly(const std::filesystem::path& file) const override;
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override;
  std::unique_ptr<FileLock> TryLock(const std::filesystem::path& file) override;

 private:
  DriveMap drives_;
  UnfinishedFiles unfinished_;
};

}  // namespace trillomat
