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

/// The system's text of UTF-8; nothing when it is not valid.
std::optional<std::wstring> WideOfUtf8(std::string_view text);

/// Sets errno to the code for what GetLastError says; to 0 where there is none. Returns false, so that a
/// function that fails can return that.
bool KeepLastError();

}  // namespace trillomat
