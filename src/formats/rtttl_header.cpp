#include "formats/rtttl_header.h"

#include <algorithm>
#include <optional>
#include <string>

#include "core/ascii.h"
#include "core/number_text.h"
#include "formats/fault_trap.h"

namespace trillomat {
namespace {

// The digits at the front of `text`; a run that reaches its end is logged, and used all the same.
std::string_view FrontDigits(std::string_view text, Log& log) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  if (end == text.end()) log.WriteLog("Critical Error in GetDefault RTTTL", 1);
  return text.substr(0, static_cast<size_t>(end - text.begin()));
}

template <typename Int>
Int Fitting(std::optional<Int> number, std::string_view key, std::string_view digits) {
  if (!number)
    throw RunTimeFault("the header's " + Quoted(std::string(key) + std::string(digits)) + " is out of range");
  return *number;
}

// Reads the key that `text` starts with, if it does.
void ReadKey(std::string_view text, Workspace& ws) {
  const std::string_view key = text.substr(0, 2);
  text.remove_prefix(key.size());
  if (key == "s=") {
    ws.rtttl.Style = text.substr(0, 1);
  } else if (key == "b=") {
    const auto digits = FrontDigits(text, ws.log);
    ws.rtttl.BPM = Fitting(RoundToInt32(LeadingNumber(digits)), key, digits);
  } else if (key == "l=") {
    const auto digits = FrontDigits(text, ws.log);
    ws.rtttl.Loop = Fitting(RoundToInt16(LeadingNumber(digits)), key, digits);
  } else if (key == "d=") {
    ws.rtttl.Duration = ws.codec.DecodeDuration(FrontDigits(text, ws.log), FormatMode::Rtttl);
    ws.codec.defaults.duration = ws.rtttl.Duration;
  } else if (key == "o=") {
    const auto digits = FrontDigits(text, ws.log);
    ws.rtttl.Octave = Fitting(RoundToInt16(LeadingNumber(digits) - 2), key, digits);
    ws.codec.defaults.octave = ws.rtttl.Octave;
  }
}

// The notes as the codec wants them: in lower case, pauses as r, the German h as b.
constexpr char NoteCharacter(char c) {
  const char lower = ToLower(c);
  if (lower == 'p' || lower == '-') return 'r';
  return lower == 'h' ? 'b' : lower;
}

}  // namespace

RtttlParts SplitRtttl(std::string_view text) {
  const size_t first = text.find(':');
  const size_t second = first == std::string_view::npos ? first : text.find(':', first + 1);
  if (second == std::string_view::npos) throw RunTimeFault("the text holds fewer than two \":\"");
  return {text.substr(0, second), text.substr(second + 1)};
}

void GetDefaultRTTTL(std::string_view header, Workspace& ws) {
  const size_t colon = header.find(':');
  if (colon == std::string_view::npos) {
    ws.log.WriteLog("Incorrect Header", 2);
    return;
  }
  ws.codec.defaults = {ws.rtttl.Octave, ws.rtttl.Duration};
  ws.rtttl.Name = header.substr(0, colon);
  for (size_t i = colon + 1; i < header.size(); ++i) ReadKey(header.substr(i), ws);
}

void TakeRtttlHeader(Workspace& ws) {
  ws.header.BPM = ws.rtttl.BPM;
  ws.header.Name = ws.rtttl.Name;
  ws.header.Style = ws.rtttl.Style;
  ws.header.Loop = ws.rtttl.Loop;
  ws.header.Version.clear();
  ws.header.Format.clear();
  ws.header.Composer.clear();
}

void AppendRtttlTokens(std::string_view notes, Workspace& ws) {
  std::string text(notes);
  std::transform(text.begin(), text.end(), text.begin(), NoteCharacter);
  for (std::string_view rest = text; !rest.empty();) {
    const size_t comma = rest.find(',');
    const std::string_view token = rest.substr(0, comma);
    rest.remove_prefix(std::min(rest.size(), token.size() + 1));
    // Escaped, because "??-" was a trigraph once and compilers warn of it.
    if (comma == std::string_view::npos) ws.log.WriteLog("Last Note?\?-->" + std::string(token), 1);
    // A text view that was rebuilt since the last token has set defaults of its own.
    ws.codec.defaults = {ws.rtttl.Octave, ws.rtttl.Duration};
    MelodyNote note = ws.codec.DecodeNote(token, FormatMode::Rtttl);
    if (note.Special != "Error") ws.ImportMelody.push_back(std::move(note));
    PumpOrLeave(ws);
  }
}

}  // namespace trillomat
