// Short ways to write down elements and melodies in the tests.
#pragma once

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "core/melody.h"
#include "core/number_text.h"

namespace trillomat {

inline MelodyNote Tone(std::string_view note, int octave = 4, float duration = 1.0F, float extra = 1.0F) {
  return {.Octave = static_cast<int16_t>(octave),
          .Note = std::string(note),
          .Special = "",
          .DurationExtra = extra,
          .Duration = duration,
          .NotSupported = false};
}

inline MelodyNote Pause(float duration = 1.0F, float extra = 1.0F) {
  return Tone("r", kNoOctave, duration, extra);
}

inline MelodyList Tones(std::initializer_list<int> octaves) {
  MelodyList notes;
  for (const int octave : octaves) notes.push_back(Tone("c", octave));
  return notes;
}

inline std::vector<int> OctavesOf(const MelodyList& notes) {
  std::vector<int> octaves;
  for (const MelodyNote& note : notes) octaves.push_back(note.Octave);
  return octaves;
}

/// "OCTAVE NOTE DURATION EXTRA" of a tone or a pause, the token of a command.
inline std::string Described(const MelodyNote& note) {
  if (note == CommandNote(note.Special)) return note.Special;
  return std::to_string(note.Octave) + " " + note.Note + note.Special + " " + FloatText(note.Duration) + " " +
         FloatText(note.DurationExtra);
}

/// The same of many, with ", " between them.
inline std::string Described(const MelodyList& notes) {
  std::string text;
  for (const MelodyNote& note : notes) text += (text.empty() ? "" : ", ") + Described(note);
  return text;
}

/// The element that is described so.
inline MelodyNote NoteOf(const std::string& description) {
  if (description.find(' ') == std::string::npos) return CommandNote(description);
  MelodyNote note;
  std::istringstream(description) >> note.Octave >> note.Note >> note.Duration >> note.DurationExtra;
  return note;
}

}  // namespace trillomat
