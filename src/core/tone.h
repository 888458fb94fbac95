// The spellings of the twelve tones, and their order in every table that is indexed by a tone.
#pragma once

#include <array>
#include <string_view>

namespace trillomat {

/// The seventeen spellings, from c to b: "#" is sharp and "&" is flat.
inline constexpr std::array<std::string_view, 17> kTones{"c",  "#c", "&d", "d",  "#d", "&e", "e",  "f", "#f",
                                                         "&g", "g",  "#g", "&a", "a",  "#a", "&b", "b"};

/// A value for each spelling, in the order of kTones.
template <typename Value>
using ToneTable = std::array<Value, kTones.size()>;

/// The twelve tones from c to b as a piano's keys give them: never as flats.
inline constexpr std::array<std::string_view, 12> kPianoTones{"c",  "#c", "d",  "#d", "e",  "f",
                                                              "#f", "g",  "#g", "a",  "#a", "b"};

/// The index of `note` in kTones whatever its case, -1 for any other text.
int ToneIndex(std::string_view note);

/// The index in kPianoTones of what `note`, of either case, sounds as: semitones above c. -1 for what is none
/// of kTones.
int SemitoneOf(std::string_view note);

struct PianoTone {
  std::string_view tone;  ///< one of kPianoTones
  int octavesUp;          ///< from the octave of the letter that it was spelled with
};

/// The key of the piano that a letter, a to g in lower case, means with an accidental of -1, 0 or 1
/// semitones: e sharp is f, b sharp the c above it.
PianoTone PianoToneOf(char letter, int accidental);

}  // namespace trillomat
