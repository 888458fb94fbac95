#include "platform/installed_data.h"

namespace trillomat {

std::filesystem::path InstalledData(const std::filesystem::path& programFolder, std::string_view name) {
  if (programFolder.empty()) return {};
  for (const auto& prefix : {programFolder.parent_path(), programFolder}) {
    auto data = prefix / "share" / "trillomat" / name;
    std::error_code unknown;
    if (std::filesystem::exists(data, unknown)) return data;
  }
  return {};
}

}  // namespace trillomat
