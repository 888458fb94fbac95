// What is installed with the programs for them to find: the sample melodies and the manual.
#pragma once

#include <filesystem>
#include <string_view>

namespace trillomat {

/// The installed file or folder of that name ("samples", "manual/manual.html") for programs in
/// `programFolder`: below share/trillomat beside that folder, or in it. Empty when there is none.
std::filesystem::path InstalledData(const std::filesystem::path& programFolder, std::string_view name);

}  // namespace trillomat
