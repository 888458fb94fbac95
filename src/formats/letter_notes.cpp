#include "formats/letter_notes.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/codec.h"

namespace trillomat {
namespace {

constexpr std::string_view kStart = "MELODY:";
constexpr std::string_view kEnd = "END:EMELODY";
constexpr std::string_view kAdvice = "Each note ends with its letter, a to h, or p for a pause";

constexpr char PauseAndGermanB(char c) {
  switch (c) {
    case 'p':
    case '-': return 'r';
    case 'P': return 'R';
    case 'h': return 'b';
    case 'H': return 'B';
    default: return c;
  }
}

// The codes 65 to 121: "z" ends no token, and the signs between the upper- and lower-case letters do.
constexpr bool IsToneLetter(char c) { return c >= 'A' && c <= 'y'; }

// The token at the front of `text`, which is not empty: up to the first letter without a ")" behind
// it (that one belongs to a flat sign), and the dot after it. Empty when no letter ends one.
std::string_view FrontToken(std::string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view behind = text.substr(i + 1);
    if (!IsToneLetter(text[i]) || behind.starts_with(')')) continue;
    return text.substr(0, behind.starts_with('.') ? i + 2 : i + 1);
  }
  return {};
}

}  // namespace

void SetUnknownSong(SongInfo& info) {
  info = {.name = "Unknown",
          .composer = "",
          .bpm = 200,
          .style = "",
          .volume = "",
          .version = "",
          .format = "",
          .loop = info.loop};
}

MarkedNotes FindMarkedNotes(std::string_view text) {
  const size_t start = text.find(kStart);
  if (start == std::string_view::npos) return {};
  MarkedNotes marked{.start = text.substr(start, kStart.size()), .notes = {}};
  text.remove_prefix(start + kStart.size());
  const size_t end = text.find(kEnd);
  if (end != std::string_view::npos) marked.notes = text.substr(0, end);
  return marked;
}

void TakeLetterNotes(std::string_view notes, std::string_view text, FormatMode mode, Reading& reading) {
  std::string tokens = WithoutLayout(notes);
  if (tokens.empty()) {
    throw ReadFault(ReadFault::Kind::Logged, "the text holds no notes", OriginOf(notes, text, reading.bytes),
                    kAdvice);
  }
  std::transform(tokens.begin(), tokens.end(), tokens.begin(), PauseAndGermanB);
  const auto origin = [&](std::string_view part) {
    return OriginOf(part, tokens, OriginOf(notes, text, reading.bytes));
  };
  for (std::string_view rest = tokens; !rest.empty();) {
    const std::string_view token = FrontToken(rest);
    if (token.empty()) {
      reading.services.log.WriteLog("Critical error when converting!!!!", 1);
      throw ReadFault(ReadFault::Kind::Quiet, "the notes end without a tone letter", origin(rest), kAdvice);
    }
    rest.remove_prefix(token.size());
    Element element = Decode(token, mode, {}, reading.services.log);
    reading.Count(element, [&] { return origin(token); });
    reading.Append(std::move(element));
  }
}

}  // namespace trillomat
