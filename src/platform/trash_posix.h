// The user's trash as desktops have it, by the freedesktop.org Trash specification 1.0 (the home trash):
//
//   $XDG_DATA_HOME/Trash/files/NAME            the file
//   $XDG_DATA_HOME/Trash/info/NAME.trashinfo   its former path, and when it was put into the trash
//
// The info file is made first, which fails where there is one: so two programs never use the same name.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "files/file_keeper.h"
#include "files/file_store.h"

namespace trillomat {

/// The folder of the trash; nothing when it does not exist and no desktop runs that would show it.
std::optional<std::filesystem::path> DesktopTrash();

class Trash : public FileKeeper {
 public:
  Trash(FileStore& store, std::filesystem::path folder) : store_(store), folder_(std::move(folder)) {}

  std::optional<std::filesystem::path> Keep(const std::filesystem::path& file, How how) override;
  void Discard(const std::filesystem::path& kept) override;

 private:
  std::filesystem::path InfoOf(const std::string& name) const {
    return folder_ / "info" / (name + ".trashinfo");
  }
  bool MakeFolders() const;
  bool MakeInfo(const std::string& name, const std::filesystem::path& file) const;
  bool Put(const std::filesystem::path& file, const std::filesystem::path& kept, How how);

  FileStore& store_;
  std::filesystem::path folder_;
};

}  // namespace trillomat
