#include "app/log_folder.h"

#include "files/replace_file.h"

namespace trillomat {
namespace {

// Access rights do not tell it all (read-only media, network folders), so a file is made and removed.
bool CanWriteIn(const std::filesystem::path& folder, FileStore& files) {
  if (folder.empty()) return false;
  MakePrivateFolder(folder);
  return files.Make(folder / "trillomat.tmp", true) != nullptr;
}

}  // namespace

std::optional<std::filesystem::path> LogFolder(const std::filesystem::path& programFolder,
                                               const std::filesystem::path& stateFolder, FileStore& files) {
  if (CanWriteIn(programFolder, files)) return programFolder;
  if (CanWriteIn(stateFolder, files)) return stateFolder;
  return std::nullopt;
}

}  // namespace trillomat
