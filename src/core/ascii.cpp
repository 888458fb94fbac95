#include "core/ascii.h"

#include <algorithm>

namespace trillomat {

std::string Lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToLower);
  return result;
}

std::string Uppered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToUpper);
  return result;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return ToLower(x) == ToLower(y); });
}

bool RemoveAll(std::string& text, std::string_view part) {
  if (!Contains(text, part)) return false;
  text = ReplaceAll(text, part, "");
  return true;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  while (true) {
    const size_t at = text.find(from);
    result += text.substr(0, at);
    if (at == std::string_view::npos) return result;
    result += to;
    text.remove_prefix(at + from.size());
  }
}

std::string WithoutLayout(std::string_view text) {
  std::string result(text);
  std::erase_if(result, IsLayout);
  return result;
}

}  // namespace trillomat
