#include "core/tone.h"

#include "core/ascii.h"

namespace trillomat {

int ToneIndex(std::string_view note) {
  for (size_t i = 0; i < kTones.size(); ++i) {
    if (EqualNoCase(kTones.at(i), note)) return static_cast<int>(i);
  }
  return -1;
}

int SemitoneOf(std::string_view note) {
  constexpr ToneTable<int> kSemitones{0, 1, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 8, 9, 10, 10, 11};
  const int index = ToneIndex(note);
  return index < 0 ? -1 : kSemitones.at(static_cast<size_t>(index));
}

PianoTone PianoToneOf(char letter, int accidental) {
  constexpr int kSemitones = static_cast<int>(kPianoTones.size());
  const int semitone = SemitoneOf({&letter, 1}) + accidental;
  const int octavesUp = semitone < 0 ? -1 : semitone / kSemitones;
  return {kPianoTones.at(static_cast<size_t>(semitone - kSemitones * octavesUp)), octavesUp};
}

}  // namespace trillomat
