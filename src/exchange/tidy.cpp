#include "exchange/tidy.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/code_page.h"
#include "exchange/tidy_functions.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

Tidied TidyCodePage(std::string_view text, FormatMode mode) {
  TidyText tidy(text);
  switch (mode) {
    case FormatMode::IMelody: TidyIMelody(tidy); break;
    case FormatMode::EMelody: TidyEMelody(tidy); break;
    case FormatMode::Rtttl: TidyRtttl(tidy); break;
    case FormatMode::Melody: TidyMelody(tidy); break;
  }
  return std::move(tidy).Finish();
}

// A part of a text as a list shows it: in quotes, on one line, cut when it is long.
std::string Shown(std::string_view part) {
  constexpr size_t kLongest = 40;
  return "\"" + OnOneLine(part.substr(0, kLongest), ' ') + (part.size() > kLongest ? "...\"" : "\"");
}

}  // namespace

Tidied Tidy(std::string_view text, FormatMode mode) {
  const std::string_view unmarked =
      text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
  if (std::all_of(text.begin(), text.end(), IsAscii)) return TidyCodePage(text, mode);
  const auto converted = FromUtf8(unmarked);
  if (!converted) return TidyCodePage(text, mode);
  Tidied tidied = TidyCodePage(*converted, mode);
  tidied.changes.insert(tidied.changes.begin(), {.line = 1,
                                                 .column = 1,
                                                 .before = "UTF-8",
                                                 .after = "Windows-1252",
                                                 .why = "this program keeps texts in that code page"});
  return tidied;
}

Tidied TidyPart(std::string_view part, std::string_view whole, FormatMode mode) {
  Tidied tidied = Tidy(part, mode);
  const size_t before = SplitLines(whole.substr(0, static_cast<size_t>(part.data() - whole.data()))).size();
  for (TidyChange& change : tidied.changes) change.line += before;
  return tidied;
}

std::string ChangeText(const TidyChange& change) {
  std::string text =
      "line " + std::to_string(change.line) + ", column " + std::to_string(change.column) + ": ";
  if (change.before.empty()) {
    text += Shown(change.after) + " was added";
  } else if (change.after.empty()) {
    text += Shown(change.before) + " was left out";
  } else {
    text += Shown(change.before) + " is now " + Shown(change.after);
  }
  return text + ": " + change.why;
}

}  // namespace trillomat
