#include "cli/json_text.h"

#include <array>
#include <cstdio>

#include "core/code_page.h"

namespace trillomat {

std::string JsonString(std::string_view text) {
  const std::string readable = FromUtf8(text) ? std::string(text) : ToUtf8(text);
  std::string json = "\"";
  for (const char c : readable) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < ' ') {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      json += escape.data();
    } else {
      json += c;
    }
  }
  return json + '"';
}

std::string JsonStringOfCodePage(std::string_view text) { return JsonString(ToUtf8(text)); }

void AddMember(std::string& object, std::string_view name, std::string_view value) {
  if (object.back() != '{') object += ", ";
  object += '"';
  object += name;
  object += "\": ";
  object += value;
}

void AddItem(std::string& array, std::string_view value) {
  if (array.back() != '[') array += ", ";
  array += value;
}

}  // namespace trillomat
