// The spellings of the twelve tones, and their order in every table that is indexed by a tone.
#pragma once

#include <array>
#include <cstdint>
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

/// Tables of a value for each note of one or two characters, and where a note stands in them: by its length,
/// its accidental and its letter of either case.
namespace tone_places {

inline constexpr size_t kLetters = 8;      // a to g, and one for any other character
inline constexpr size_t kAccidentals = 4;  // for a letter, "#", "&", and any other character

// For each character: the number of its accidental times kLetters, plus that of its letter.
inline constexpr auto kCharacters = [] {
  std::array<uint8_t, 256> characters{};
  characters.fill((kAccidentals - 1) * kLetters + kLetters - 1);
  characters['#'] = kLetters + kLetters - 1;
  characters['&'] = 2 * kLetters + kLetters - 1;
  for (uint8_t i = 0; i < kLetters - 1; ++i) characters[size_t{'a'} + i] = characters[size_t{'A'} + i] = i;
  return characters;
}();

// Without a branch: the processor could not foretell what comes next in a melody.
constexpr size_t PlaceOf(std::string_view note) {
  const size_t accidental = kCharacters[static_cast<unsigned char>(note.front())] / kLetters;
  const size_t letter = kCharacters[static_cast<unsigned char>(note.back())] % kLetters;
  return ((note.size() - 1) * kAccidentals + accidental) * kLetters + letter;
}

/// A table with what `valueOf` gives for the index of each of kTones, and -1 for all other notes.
template <typename ValueOf>
constexpr auto TableOf(ValueOf valueOf) {
  std::array<int8_t, 2 * kAccidentals * kLetters> table{};
  table.fill(-1);
  for (size_t i = 0; i < kTones.size(); ++i) table.at(PlaceOf(kTones.at(i))) = valueOf(i);
  return table;
}

inline constexpr auto kIndexes = TableOf([](size_t tone) { return static_cast<int8_t>(tone); });
inline constexpr auto kSemitones = TableOf([](size_t tone) {
  constexpr ToneTable<int8_t> kValues{0, 1, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 8, 9, 10, 10, 11};
  return kValues.at(tone);
});

}  // namespace tone_places

/// The index of `note` in kTones whatever its case, -1 for any other text.
constexpr int ToneIndex(std::string_view note) {
  return note.empty() || note.size() > 2 ? -1 : tone_places::kIndexes[tone_places::PlaceOf(note)];
}

/// The semitones from c up to `note`, of either case: its index in kPianoTones. -1 for what is none of
/// kTones.
constexpr int SemitoneOf(std::string_view note) {
  return note.empty() || note.size() > 2 ? -1 : tone_places::kSemitones[tone_places::PlaceOf(note)];
}

/// A key of the piano.
struct PianoTone {
  std::string_view tone;  ///< one of kPianoTones
  int octavesUp;          ///< from the octave of the letter that it was spelled with: -1, 0 or 1
};

/// The key of the piano that a letter, a to g in lower case, means with an accidental of -1, 0 or 1
/// semitones: e sharp is f, b sharp the c above it.
PianoTone PianoToneOf(char letter, int accidental);

}  // namespace trillomat
