// Keeps the settings in an ini file. It is replaced as a whole, as melody files are, so that a full disk
// leaves the old one; and programs that run at the same time take turns to change it.
#pragma once

#include <filesystem>

#include "files/file_store.h"
#include "settings/ini_text.h"
#include "settings/settings_store.h"

namespace trillomat {

class IniSettingsStore : public SettingsStore {
 public:
  /// Neither `file` nor its folder need exist. Anything but a plain file counts as one that cannot be read.
  IniSettingsStore(std::filesystem::path file, FileStore& files);

  std::optional<Refusal> Fault() const override { return fault_; }
  void Refresh() override { Read(); }
  std::optional<std::string> Get(std::string_view section, std::string_view key) const override;
  std::optional<Refusal> Write(const SettingsChanges& changes) override;

 private:
  void Read();
  std::filesystem::path LockFile() const { return file_.parent_path() / ".trillomat.lock"; }
  std::unique_ptr<FileLock> WaitForTurn();
  std::optional<Refusal> MakeInTurn(const SettingsChanges& changes);

  std::filesystem::path file_;
  FileStore& files_;
  IniText text_;
  std::optional<Refusal> fault_;
};

}  // namespace trillomat
