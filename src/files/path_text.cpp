#include "files/path_text.h"

#include "core/ascii.h"
#include "core/code_page.h"

namespace trillomat {

std::filesystem::path PathOfUtf8(std::string_view text) { return std::u8string(text.begin(), text.end()); }

std::string Utf8OfPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

bool HasMidiName(const std::filesystem::path& file) {
  const std::string extension = Utf8OfPath(file.extension());
  return EqualNoCase(extension, ".mid") || EqualNoCase(extension, ".midi");
}

std::string LogText(std::string_view path) {
  return OnOneLine(FromUtf8(path).value_or(std::string(path)), '?');
}

std::string LogText(const std::filesystem::path& native, const FileStore& store) {
  return LogText(store.GivenPath(native).value_or(Utf8OfPath(native)));
}

}  // namespace trillomat
