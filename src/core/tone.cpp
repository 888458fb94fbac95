#include "core/tone.h"

namespace trillomat {

PianoTone PianoToneOf(char letter, int accidental) {
  constexpr int kSemitones = static_cast<int>(kPianoTones.size());
  const int semitone = SemitoneOf({&letter, 1}) + accidental;
  const int octavesUp = semitone < 0 ? -1 : semitone / kSemitones;
  return {kPianoTones.at(static_cast<size_t>(semitone - kSemitones * octavesUp)), octavesUp};
}

}  // namespace trillomat
