#include <cstdlib>
#include <string>

#include "platform/user_folders.h"
#include "platform/win32.h"

namespace trillomat {

std::filesystem::path ProgramFolder() {
  constexpr DWORD kLongestPath = 32768;
  std::wstring file(kLongestPath, L'\0');
  file.resize(GetModuleFileNameW(nullptr, file.data(), kLongestPath));
  return std::filesystem::path(file).parent_path();
}

std::filesystem::path StateFolder() {
  const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
  return std::filesystem::path(folder == nullptr ? L"" : folder) / L"Trillomat";
}

std::filesystem::path SettingsFolder() { return StateFolder(); }

}  // namespace trillomat
