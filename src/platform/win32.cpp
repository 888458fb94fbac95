#include "platform/win32.h"

#include <cerrno>

namespace trillomat {

std::optional<std::string> Utf8OfWide(std::wstring_view text) {
  const auto length = static_cast<int>(text.size());
  if (length == 0) return "";
  const auto convert = [&](char* out, int size) {
    return WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), length, out, size, nullptr,
                               nullptr);
  };
  std::string utf8(static_cast<size_t>(convert(nullptr, 0)), '\0');
  if (utf8.empty()) return std::nullopt;
  convert(utf8.data(), static_cast<int>(utf8.size()));
  return utf8;
}

std::optional<std::wstring> WideOfUtf8(std::string_view text) {
  const auto length = static_cast<int>(text.size());
  if (length == 0) return L"";
  const auto convert = [&](wchar_t* out, int size) {
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, out, size);
  };
  std::wstring wide(static_cast<size_t>(convert(nullptr, 0)), L'\0');
  if (wide.empty()) return std::nullopt;
  convert(wide.data(), static_cast<int>(wide.size()));
  return wide;
}

bool KeepLastError() {
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME: errno = ENOENT; break;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT: errno = EACCES; break;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: errno = EBUSY; break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: errno = ENOSPC; break;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: errno = EEXIST; break;
    case ERROR_FILENAME_EXCED_RANGE: errno = ENAMETOOLONG; break;
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA: errno = EPIPE; break;
    default: errno = 0;
  }
  return false;
}

}  // namespace trillomat
