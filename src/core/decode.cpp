// Decode: one token into an element, a function for each notation.
#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

// The character at `at`, or nothing behind the end.
std::string_view CharAt(std::string_view text, size_t at) {
  return at < text.size() ? text.substr(at, 1) : std::string_view();
}

bool IsCommandText(std::string_view text) {
  return Contains(text, "on") || Contains(text, "off") || Contains(text, "V") || Contains(text, "(") ||
         Contains(text, ")");
}

// Removes the marks of `marks` from the text; the last one found is remembered.
std::string TakeMarks(std::string& text, std::initializer_list<std::string_view> marks) {
  std::string found;
  for (const std::string_view mark : marks) {
    if (RemoveAll(text, mark)) found = mark;
  }
  return found;
}

// The accidental of E-Melody and Melody: a sharp in front, or the flat sign "(b)".
std::string TakeAccidental(std::string& text) {
  if (RemoveAll(text, "#")) return "#";
  return RemoveAll(text, "(b)") ? "&" : "";
}

int16_t OctaveWithoutMark(std::string_view text) {
  return Contains(Lowered(text), "p") ? kNoOctave : int16_t{3};
}

// The characters before "0" and the digits: what a duration number in front of a tone is made of.
size_t CountBelowColon(std::string_view text) {
  size_t count = 0;
  while (count < text.size() && static_cast<unsigned char>(text[count]) < ':') ++count;
  return count;
}

Element DecodeIMelody(std::string_view token, Log& log) {
  std::string text(token);
  const std::string accidental = TakeMarks(text, {"#", "&"});
  const std::string mark = TakeMarks(text, {".", ":", ";"});
  if (IsCommandText(text)) return Command(text);

  Element element;
  const bool marked = text.starts_with('*');
  const bool pause = !marked && Contains(text, "r");
  const std::string_view second = CharAt(text, 1);
  if (!marked && !pause && (second.empty() || !IsDigit(second.front()))) {
    log.WriteLog("Could not decode the note....-->" + text, 1);
    return element;
  }
  if (marked) {
    element.octave = RoundToInt16(LeadingNumber(second)).value_or(0);
  } else {
    element.octave = pause ? kNoOctave : int16_t{4};
  }
  element.duration = DecodeDuration(marked ? CharAt(text, 3) : second, FormatMode::IMelody, log);
  element.extra = DecodeDurationExtra(mark, FormatMode::IMelody);
  element.SetNote((pause ? "" : accidental) + std::string(CharAt(text, marked ? 2 : 0)));
  return element;
}

Element DecodeEMelody(std::string_view token, Log& log) {
  std::string text(token);
  Element element;
  const std::string dot = TakeMarks(text, {"."});
  if (RemoveAll(text, "++")) {
    element.octave = 5;
  } else {
    element.octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  }
  const std::string accidental = TakeAccidental(text);
  element.duration = DecodeDuration(text + dot, FormatMode::EMelody, log);
  element.extra = 1.0F;
  element.SetNote(accidental + Lowered(text));
  return element;
}

Element DecodeRtttl(std::string_view token, const TokenDefaults& defaults, Log& log) {
  std::string text(token);
  Element element;
  if (RemoveAll(text, "s") || RemoveAll(text, "o")) {
    element.SetCommand(kRefusedToken);
    return element;
  }
  const std::string accidental = TakeMarks(text, {"#"});
  element.extra = DecodeDurationExtra(TakeMarks(text, {"."}), FormatMode::Rtttl);
  const size_t digits = CountBelowColon(text);
  element.duration =
      digits > 0 ? DecodeDuration(text.substr(0, digits), FormatMode::Rtttl, log) : defaults.duration;
  text.erase(0, digits);
  if (!text.empty() && IsDigit(text.back())) {
    element.octave = static_cast<int16_t>(text.back() - '0' - 2);
    text.pop_back();
  } else {
    element.octave = Contains(text, "r") ? kNoOctave : defaults.octave;
  }
  element.SetNote(accidental + text);
  return element;
}

Element DecodeMelody(std::string_view token, Log& log) {
  std::string text(token);
  Element element;
  element.octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  const std::string accidental = TakeAccidental(text);
  element.duration = DecodeDuration(text, FormatMode::Melody, log);
  element.extra = 1.0F;
  element.SetNote(accidental + text);
  return element;
}

}  // namespace

Element Decode(std::string_view token, FormatMode mode, const TokenDefaults& defaults, Log& log) {
  switch (mode) {
    case FormatMode::IMelody: return DecodeIMelody(token, log);
    case FormatMode::EMelody: return DecodeEMelody(token, log);
    case FormatMode::Rtttl: return DecodeRtttl(token, defaults, log);
    case FormatMode::Melody: break;
  }
  return DecodeMelody(token, log);
}

}  // namespace trillomat
