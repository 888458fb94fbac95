// The program's single-byte text (Windows-1252) to and from UTF-8, for windows and the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace trillomat {

/// UTF-8 of Windows-1252 text. The five bytes without a character become the control characters of
/// the same number, as the WHATWG encoding table has it, so every text survives the round trip.
std::string ToUtf8(std::string_view codePageText);

/// Windows-1252 of UTF-8 text, each character that it lacks replaced by "?"; nothing when `utf8` is
/// not valid UTF-8.
std::optional<std::string> FromUtf8(std::string_view utf8);

/// Appends the UTF-8 of a character up to U+FFFF.
void AppendUtf8(std::string& out, char32_t codePoint);

/// Takes the character at the front of `utf8` (not empty). Nothing, and nothing taken, when the bytes there
/// are not UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& utf8);

/// True when Windows-1252 has the Unicode character `codePoint`.
bool CodePageHas(char32_t codePoint);

}  // namespace trillomat
