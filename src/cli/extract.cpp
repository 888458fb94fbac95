#include "cli/extract.h"

#include <algorithm>

#include "cli/console.h"
#include "cli/shown_line.h"
#include "core/code_page.h"
#include "core/codec.h"
#include "core/silent_services.h"
#include "files/refusal_text.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view LineOf(std::string_view text, size_t number) {
  std::string_view line;
  for (; number > 0 && !text.empty(); --number) line = TakeLine(text);
  return number == 0 ? line : std::string_view();
}

size_t CharactersIn(std::string_view utf8) {
  return static_cast<size_t>(std::count_if(
      utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// A line of a text, and how many characters stand before a place in it and in a part of it. A mark of the
// byte order is none.
class TextLine {
 public:
  explicit TextLine(std::string_view line)
      : line_(line), isUtf8_(FromUtf8(line)), skipped_(isUtf8_ && line.starts_with(kByteOrderMark) ? 3 : 0) {}

  size_t Characters(size_t begin, size_t size) const {
    const size_t from = std::clamp(begin, skipped_, line_.size());
    const size_t to = std::clamp(begin + size, from, line_.size());
    return isUtf8_ ? CharactersIn(line_.substr(from, to - from)) : to - from;
  }

  std::string Utf8() const { return isUtf8_ ? std::string(line_.substr(skipped_)) : ToUtf8(line_); }

 private:
  std::string_view line_;
  bool isUtf8_;
  size_t skipped_;
};

}  // namespace

Refusal InCharacters(Refusal place, std::string_view text) {
  if (place.line > 0) {
    place.column = 1 + TextLine(LineOf(text, place.line)).Characters(0, place.column - 1);
  }
  return place;
}

std::string ExtractOf(std::string_view text, const Refusal& place, std::string_view note) {
  if (place.line == 0) return {};
  const TextLine line(LineOf(text, place.line));
  const Mark mark{.begin = line.Characters(0, place.column - 1),
                  .size = line.Characters(place.column - 1, place.text.size())};
  return MarkedLine(line.Utf8(), mark, ErrorColumns(), note);
}

std::string ExtractOf(const ElementList& elements, size_t index, FormatMode mode, std::string_view note) {
  SilentLog silent;
  const size_t columns = ErrorColumns();
  std::string line;
  Mark mark;
  const size_t end = std::min(elements.size(), index + columns);
  for (size_t i = index - std::min(index, columns); i < end; ++i) {
    if (!line.empty()) line += ' ';
    const std::string token = ToUtf8(Encode(elements[i], mode, kNoTokenDefaults, silent).text);
    if (i == index) mark = {.begin = CharactersIn(line), .size = CharactersIn(token)};
    line += token;
  }
  return MarkedLine(line, mark, columns, note);
}

Refused RefusedText(const std::string& name, std::string_view text, const Refusal& refusal, bool isTidied) {
  // The place is one in what was read.
  const std::string_view note = isTidied ? "in the text as it was tidied" : "";
  return Refused(name + ": " + RefusalText({}, InCharacters(refusal, text)), ExtractOf(text, refusal, note));
}

}  // namespace trillomat
