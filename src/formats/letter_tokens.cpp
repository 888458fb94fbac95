#include "formats/letter_tokens.h"

#include <algorithm>
#include <string>

#include "core/ascii.h"
#include "formats/fault_trap.h"

namespace trillomat {
namespace {

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

void SetUnknownSong(SongHeader& header) {
  header = {.Name = "Unknown",
            .Composer = "",
            .BPM = 200,
            .Style = "",
            .Volume = "",
            .Version = "",
            .Format = "",
            .Loop = header.Loop};
}

void AppendLetterTokens(std::string_view notes, FormatMode mode, Workspace& ws) {
  std::string text = WithoutLayout(notes);
  if (text.empty()) throw RunTimeFault("the text holds no notes");
  std::transform(text.begin(), text.end(), text.begin(), PauseAndGermanB);
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view token = FrontToken(rest);
    if (token.empty()) {
      ws.log.WriteLog("Critical error when converting!!!!", 1);
      throw QuietFailure("the notes end without a tone letter: " + Quoted(rest));
    }
    rest.remove_prefix(token.size());
    ws.ImportMelody.push_back(ws.codec.DecodeNote(token, mode));
    PumpOrLeave(ws);
  }
}

}  // namespace trillomat
