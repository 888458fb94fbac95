// The system's header on Windows, without its macros that break the standard library.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX  // the C++ library may have defined it
#define NOMINMAX
#endif
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace trillomat {

/// UTF-8 of the system's text; nothing when it is not valid UTF-16, as names of files can be.
std::optional<std::string> Utf8OfWide(std::wstring_view text);

/// The other way round; nothing when it is not valid UTF-8.
std::optional<std::wstring> WideOfUtf8(std::string_view text);

/// Sets errno to what GetLastError says, as far as there is such a code; to 0 where there is none. Returns
/// false, so that what failed can return it.
bool KeepLastError();

}  // namespace trillomat
