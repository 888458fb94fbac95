// NoteCodec::DecodeNote: one token into a record, a function for each notation.
#include "core/ascii.h"
#include "core/note_codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

// The character at `at`, or nothing behind the end.
std::string_view CharAt(std::string_view text, size_t at) {
  return at < text.size() ? text.substr(at, 1) : std::string_view();
}

bool IsCommand(std::string_view text) {
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

}  // namespace

MelodyNote NoteCodec::DecodeNote(std::string_view token, FormatMode mode) const {
  switch (mode) {
    case FormatMode::IMelody: return DecodeIMelody(token);
    case FormatMode::EMelody: return DecodeEMelody(token);
    case FormatMode::Rtttl: return DecodeRtttl(token);
    case FormatMode::Melody: break;
  }
  return DecodeMelody(token);
}

MelodyNote NoteCodec::DecodeIMelody(std::string_view token) const {
  std::string text(token);
  const std::string accidental = TakeMarks(text, {"#", "&"});
  const std::string mark = TakeMarks(text, {".", ":", ";"});
  if (IsCommand(text)) return CommandNote(text);

  MelodyNote note;
  const bool marked = text.starts_with('*');
  const bool pause = !marked && Contains(text, "r");
  const std::string_view second = CharAt(text, 1);
  if (!marked && !pause && (second.empty() || !IsDigit(second.front()))) {
    log_.WriteLog("Could not decode the note....-->" + text, 1);
    return note;
  }
  if (marked) {
    note.Octave = RoundToInt16(LeadingNumber(second)).value_or(0);
  } else {
    note.Octave = pause ? kNoOctave : int16_t{4};
  }
  note.Duration = DecodeDuration(marked ? CharAt(text, 3) : second, FormatMode::IMelody);
  note.DurationExtra = DecodeDurationExtra(mark, FormatMode::IMelody);
  note.Note = (pause ? "" : accidental) + std::string(CharAt(text, marked ? 2 : 0));
  return note;
}

MelodyNote NoteCodec::DecodeEMelody(std::string_view token) const {
  std::string text(token);
  MelodyNote note;
  const std::string dot = TakeMarks(text, {"."});
  if (RemoveAll(text, "++")) {
    note.Octave = 5;
  } else {
    note.Octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  }
  const std::string accidental = TakeAccidental(text);
  note.Duration = DecodeDuration(text + dot, FormatMode::EMelody);
  note.DurationExtra = 1.0F;
  note.Note = accidental + Lowered(text);
  return note;
}

MelodyNote NoteCodec::DecodeRtttl(std::string_view token) const {
  std::string text(token);
  MelodyNote note;
  if (RemoveAll(text, "s") || RemoveAll(text, "o")) {
    note.Special = "Error";
    return note;
  }
  const std::string accidental = TakeMarks(text, {"#"});
  note.DurationExtra = DecodeDurationExtra(TakeMarks(text, {"."}), FormatMode::Rtttl);
  const size_t digits = CountBelowColon(text);
  note.Duration = digits > 0 ? DecodeDuration(text.substr(0, digits), FormatMode::Rtttl) : defaults.duration;
  text.erase(0, digits);
  if (!text.empty() && IsDigit(text.back())) {
    note.Octave = static_cast<int16_t>(text.back() - '0' - 2);
    text.pop_back();
  } else {
    note.Octave = Contains(text, "r") ? kNoOctave : defaults.octave;
  }
  note.Note = accidental + text;
  return note;
}

MelodyNote NoteCodec::DecodeMelody(std::string_view token) const {
  std::string text(token);
  MelodyNote note;
  note.Octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  const std::string accidental = TakeAccidental(text);
  note.Duration = DecodeDuration(text, FormatMode::Melody);
  note.DurationExtra = 1.0F;
  note.Note = accidental + text;
  return note;
}

}  // namespace trillomat
