// JSON, piece by piece. Objects begin with "{" and arrays with "[", which their pieces are then added to.
#pragma once

#include <string>
#include <string_view>

namespace trillomat {

/// A string of UTF-8 text; bytes that are none stand for Windows-1252.
std::string JsonString(std::string_view text);
/// A string of Windows-1252 text.
std::string JsonStringOfCodePage(std::string_view text);

/// Adds a member whose value is JSON already.
void AddMember(std::string& object, std::string_view name, std::string_view value);
/// Adds an item that is JSON already.
void AddItem(std::string& array, std::string_view value);

}  // namespace trillomat
