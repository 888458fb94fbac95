#include <cstdlib>

#include "platform/file_store_drives.h"
#include "platform/user_folders.h"
#include "platform/user_folders_posix.h"

namespace trillomat {

std::filesystem::path UserFolder(const char* variable, const char* belowHome) {
  const char* folder = std::getenv(variable);
  const bool given = folder != nullptr && *folder == '/';
  return given ? std::filesystem::path(folder) : HomeFolder() / belowHome;
}

std::filesystem::path ProgramFolder() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
}

std::filesystem::path StateFolder() { return UserFolder("XDG_STATE_HOME", ".local/state") / "trillomat"; }

std::filesystem::path SettingsFolder() { return UserFolder("XDG_CONFIG_HOME", ".config") / "trillomat"; }

}  // namespace trillomat
