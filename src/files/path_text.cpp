#include "browser/path_text.h"

#include <algorithm>

#include "core/code_page.h"

namespace trillomat {

std::filesystem::path NamePath(std::string_view name) { return std::u8string(name.begin(), name.end()); }

std::string NameText(const std::filesystem::path& name) {
  const std::u8string text = name.u8string();
  return {text.begin(), text.end()};
}

std::string PathText(std::string_view path) {
  std::string text = FromUtf8(path).value_or(std::string(path));
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
  return text;
}

std::string PathText(const std::filesystem::path& native, const FileStore& store) {
  if (const auto given = store.GivenPath(native)) return PathText(*given);
  return PathText(NameText(native));
}

}  // namespace trillomat
