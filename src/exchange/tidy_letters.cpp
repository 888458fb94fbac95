// Tidying E-Melody and Melody: tones and pauses by letters, whose case is their length.
//
//   [+|++] [#|(b)] letter [.]
#include <algorithm>
#include <string>

#include "core/ascii.h"
#include "core/tone.h"
#include "exchange/reads_whole.h"
#include "exchange/tidy_functions.h"
#include "formats/letter_notes.h"

namespace trillomat {
namespace {

constexpr std::string_view kFlat = "(b)";
constexpr size_t kMostMarks = 2;  // for the octave

/// A note at the front of a text.
struct LooseNote {
  size_t size = 0;     ///< characters of it, 0 when none begins there
  size_t octave = 0;   ///< marks in front
  int accidental = 0;  ///< semitones
  char letter = 0;
  bool dot = false;
};

bool IsNoteLetter(char c) { return Contains("abcdefghp", ToLower(c)); }

LooseNote NoteAt(std::string_view text) {
  LooseNote note;
  size_t i = 0;
  while (i < kMostMarks && text.substr(i).starts_with('+')) ++i;
  note.octave = i;
  if (text.substr(i).starts_with('#') || text.substr(i).starts_with('&')) {
    note.accidental = text[i++] == '#' ? 1 : -1;
  } else if (EqualNoCase(text.substr(i, kFlat.size()), kFlat)) {
    note.accidental = -1;
    i += kFlat.size();
  }
  if (i >= text.size() || !IsNoteLetter(text[i])) return {};
  note.letter = text[i++];
  note.dot = text.substr(i).starts_with('.');
  note.size = i + (note.dot ? 1 : 0);
  return note;
}

std::string TextOf(const LooseNote& note, FormatMode mode) {
  const bool upper = ToUpper(note.letter) == note.letter;
  const char lower = ToLower(note.letter) == 'h' ? 'b' : ToLower(note.letter);
  const std::string dot = note.dot && mode == FormatMode::EMelody ? "." : "";
  const auto cased = [upper](char c) { return std::string(1, upper ? ToUpper(c) : c); };
  if (lower == 'p') return cased('p') + dot;
  const int highest = LimitsOf(mode).highestOctave - LimitsOf(mode).lowestOctave;
  const auto marks = [&](int octavesUp) {
    const int octave = std::clamp(static_cast<int>(note.octave) + octavesUp, 0, highest);
    return std::string(static_cast<size_t>(octave), '+');
  };
  const bool flat = note.accidental < 0 && ToneIndex("&" + std::string(1, lower)) >= 0;
  if (flat) return marks(0) + std::string(kFlat) + cased(lower) + dot;
  const auto [tone, up] = PianoToneOf(lower, note.accidental);
  return marks(up) + std::string(tone.substr(0, tone.size() - 1)) + cased(tone.back()) + dot;
}

// Passes what `notes` begins with; gives how many characters that was.
size_t TidyFront(std::string_view notes, FormatMode mode, TidyText& text) {
  const LooseNote note = NoteAt(notes);
  if (note.size > 0) {
    const std::string_view as = notes.substr(0, note.size);
    // One note alone is too short for a file.
    text.Replace(note.size, NotesReadWhole("c" + std::string(as), mode) ? as : TextOf(note, mode),
                 "that note is written so");
    return note.size;
  }
  if (notes.front() == '-' || IsWhitespace(notes.front())) {
    text.Keep(1);
    return 1;
  }
  size_t stray = 1;
  while (stray < notes.size() && notes[stray] != '-' && !IsWhitespace(notes[stray]) &&
         NoteAt(notes.substr(stray)).size == 0)
    ++stray;
  text.Replace(stray, "", "that is no note");
  return stray;
}

void TidyNotes(std::string_view notes, FormatMode mode, TidyText& text) {
  if (NotesReadWhole(notes, mode)) return text.Keep(notes.size());
  while (!notes.empty()) notes.remove_prefix(TidyFront(notes, mode, text));
}

// Where the notes begin in a text that has tags at most.
size_t BehindTags(std::string_view lowered) {
  const size_t version = lowered.find("version:");
  if (version == std::string_view::npos) return 0;
  const size_t end = lowered.find_first_of("\r\n", version);
  return std::min(lowered.find_first_not_of("\r\n", end), lowered.size());
}

}  // namespace

void TidyMelody(TidyText& text) { TidyNotes(text.Rest(), FormatMode::Melody, text); }

// What stands outside the markers is not read and stays, but for tags where the first marker is missing.
void TidyEMelody(TidyText& text) {
  if (ReadsWhole(text.Rest(), FormatMode::EMelody)) return;
  const std::string lowered = Lowered(text.Rest());
  const size_t start = lowered.find(Lowered(kNotesStart));
  if (start == std::string::npos) {
    text.Keep(BehindTags(lowered));
    text.Insert(kNotesStart, "the notes begin with it");
  } else {
    text.Keep(start);
    text.Replace(kNotesStart.size(), kNotesStart, "the marker is written so");
  }
  const size_t before = lowered.size() - text.Rest().size();
  const size_t end = lowered.find(Lowered(kNotesEnd), before);
  TidyNotes(text.Rest().substr(0, end == std::string::npos ? end : end - before), FormatMode::EMelody, text);
  if (end == std::string::npos)
    return text.Insert("\r\n" + std::string(kNotesEnd) + "\r\n", "the notes end with it");
  text.Replace(kNotesEnd.size(), kNotesEnd, "the marker is written so");
}

}  // namespace trillomat
