// Short ways to write down elements and melodies in the tests of the exchange folder.
#pragma once

#include <initializer_list>
#include <string>

#include "core/melody.h"

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

}  // namespace trillomat
