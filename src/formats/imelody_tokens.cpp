#include "formats/imelody_tokens.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/ascii.h"
#include "formats/fault_trap.h"

namespace trillomat {
namespace {

// It stands behind the melody while tokens are cut, and a damaged last token may reach into it.
constexpr std::string_view kSentinel = "--END--";

// Commands that are known by their first three letters.
struct Command {
  std::string_view start;
  std::string_view whole;
  size_t otherLength;  // of the token that is not `whole`
};
constexpr std::array<Command, 3> kCommands{{{"led", "ledon", 6}, {"bac", "backon", 7}, {"vib", "vibeon", 7}}};

// What is left of the melody itself, for a message.
std::string QuotedRest(std::string_view text) {
  return Quoted(text.substr(0, text.size() - std::min(text.size(), kSentinel.size())));
}

size_t RepeatEndLength(std::string_view text) {
  const size_t end = text.find(')');
  if (end == std::string_view::npos) throw RunTimeFault("a repeat end has no \")\": " + QuotedRest(text));
  return end + 1;
}

// Up to the duration digit, the first that is not the octave behind a "*", and the extra mark after it.
size_t NoteLength(std::string_view text) {
  constexpr size_t kPositions = 32767;
  const std::string_view scanned = text.substr(0, kPositions);
  for (size_t i = 0; i < scanned.size(); ++i) {
    if (!IsDigit(text[i]) || (i > 0 && text[i - 1] == '*')) continue;
    const std::string_view mark = text.substr(i + 1, 1);
    return mark == "." || mark == ":" || mark == ";" ? i + 2 : i + 1;
  }
  throw RunTimeFault("no note with a length digit follows in the melody: " + QuotedRest(text));
}

size_t FrontLength(std::string_view text) {
  for (const Command& command : kCommands) {
    if (!text.starts_with(command.start)) continue;
    return text.starts_with(command.whole) ? command.whole.size() : command.otherLength;
  }
  switch (text.empty() ? '\0' : text.front()) {
    case 'V': return text.size() > 2 && IsDigit(text[2]) ? 3 : 2;
    case '(': return 1;
    case '@': return RepeatEndLength(text);
    default: return NoteLength(text);
  }
}

}  // namespace

void AppendIMelodyTokens(std::string_view notes, Workspace& ws) {
  const std::string text = WithoutLayout(notes) + std::string(kSentinel);
  std::string_view rest = text;
  // The end is looked for behind a token, so a melody without one fails.
  do {
    const std::string_view token = rest.substr(0, FrontLength(rest));
    rest.remove_prefix(token.size());
    ws.ImportMelody.push_back(ws.codec.DecodeNote(token, FormatMode::IMelody));
    PumpOrLeave(ws);
  } while (rest.size() != kSentinel.size());
}

}  // namespace trillomat
