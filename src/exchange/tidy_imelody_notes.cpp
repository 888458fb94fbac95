#include "exchange/tidy_imelody_notes.h"

#include <algorithm>
#include <string>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/tone.h"
#include "exchange/reads_whole.h"

namespace trillomat {
namespace {

constexpr char kQuarter = '2';
constexpr char kShortest = '5';
constexpr char kHighestOctave = '8';
constexpr int kDefaultOctave = 4;

/// What the next note is made of, at the front of a text.
struct LooseNote {
  size_t size = 0;     ///< characters of it, 0 when none begins there
  char octave = 0;     ///< a digit; 0 for none
  int accidental = 0;  ///< semitones
  char letter = 0;
  char length = 0;  ///< a digit; 0 for none
  char mark = 0;
};

LooseNote NoteAt(std::string_view text) {
  LooseNote note;
  const auto next = [&] { return note.size < text.size() ? text[note.size] : '\0'; };
  const auto takesAccidental = [&] {
    if (next() != '#' && next() != '&') return false;
    note.accidental = text[note.size++] == '#' ? 1 : -1;
    return true;
  };
  if (text.size() > 1 && next() == '*' && IsDigit(text[1])) {
    note.octave = text[1];
    note.size = 2;
  }
  takesAccidental();
  if (!Contains("abcdefghrp", ToLower(next())) || next() == '\0') return {};
  note.letter = text[note.size++];
  if (note.size + 1 < text.size() && IsDigit(text[note.size + 1])) takesAccidental();
  if (IsDigit(next())) note.length = text[note.size++];
  if (next() != '\0' && Contains(".:;", next())) note.mark = text[note.size++];
  return note;
}

std::string TextOf(const LooseNote& note) {
  const std::string length(1, note.length == 0 ? kQuarter : std::min(note.length, kShortest));
  const std::string end = length + (note.mark == 0 ? "" : std::string(1, note.mark));
  const char letter = ToLower(note.letter) == 'h' ? 'b' : ToLower(note.letter);
  if (letter == 'r' || letter == 'p') return "r" + end;
  const auto [sounding, up] = PianoToneOf(letter, note.accidental);
  const bool flat = note.accidental < 0 && ToneIndex("&" + std::string(1, letter)) >= 0;
  const std::string tone = flat ? "&" + std::string(1, letter) : std::string(sounding);
  if (note.octave == 0 && up == 0) return tone + end;
  const int octave = (note.octave == 0 ? kDefaultOctave : std::min(note.octave, kHighestOctave) - '0') + up;
  return "*" + std::to_string(std::clamp(octave, 0, kHighestOctave - '0')) + tone + end;
}

// How long the command at the front of `text` is, 0 for none; what it should be goes to `command`.
size_t CommandAt(std::string_view text, std::string& command) {
  for (const std::string_view known : kSwitchCommands) {
    if (!EqualNoCase(text.substr(0, known.size()), known)) continue;
    command = known;
    return known.size();
  }
  const char second = text.size() > 1 ? text[1] : '\0';
  if (text.front() == '(') {
    command = "(";
    return 1;
  }
  if (ToUpper(text.front()) == 'V' && second != '\0') {
    constexpr std::string_view kDashes = "-\x96\x97";  // en and em dash
    if (second == '+' || Contains(kDashes, second)) {
      command = second == '+' ? "V+" : "V-";
      return 2;
    }
    const size_t digits = text.substr(1, 2).find_first_not_of("0123456789");
    const size_t length = digits == std::string_view::npos ? text.substr(0, 3).size() : digits + 1;
    command = "V" + std::string(text.substr(1, length - 1));
    return length > 1 ? length : 0;
  }
  if (text.front() != '@' || !IsDigit(second)) return 0;
  const size_t digits = std::min(text.find_first_not_of("0123456789", 1), text.size());
  command = std::string(text.substr(0, digits)) + ")";
  return text.substr(digits).starts_with(')') ? digits + 1 : digits;
}

// Passes what `notes` begins with; gives how many characters that was.
size_t TidyFront(std::string_view notes, TidyText& text) {
  if (IsWhitespace(notes.front())) {
    text.Keep(1);
    return 1;
  }
  std::string command;
  if (const size_t size = CommandAt(notes, command); size > 0) {
    text.Replace(size, command, "that command is written so");
    return size;
  }
  if (const LooseNote note = NoteAt(notes); note.size > 0) {
    const std::string_view why =
        note.length == 0 ? "a length was missing, a quarter was meant" : "that note is written so";
    const std::string_view as = notes.substr(0, note.size);
    text.Replace(note.size, NotesReadWhole(as, FormatMode::IMelody) ? as : TextOf(note), why);
    return note.size;
  }
  size_t stray = 1;
  std::string ignored;
  while (stray < notes.size() && !IsWhitespace(notes[stray]) && NoteAt(notes.substr(stray)).size == 0 &&
         CommandAt(notes.substr(stray), ignored) == 0) {
    ++stray;
  }
  text.Replace(stray, "", "that is no note");
  return stray;
}

}  // namespace

void TidyIMelodyNotes(std::string_view notes, TidyText& text) {
  if (NotesReadWhole(notes, FormatMode::IMelody)) return text.Keep(notes.size());
  while (!notes.empty()) notes.remove_prefix(TidyFront(notes, text));
}

}  // namespace trillomat
