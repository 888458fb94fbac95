// One element of a melody: a tone, a pause or a phone command. The record knows no file format;
// each format mode prints the same fields in its own notation (see note_codec.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace trillomat {

/// Marks an element without an octave: pauses and commands.
inline constexpr int16_t kNoOctave = -1;

/// The lengths that an element can have, in quarter-note beats: whole note to thirty-second note.
inline constexpr std::array<float, 6> kDurations{4.0F, 2.0F, 1.0F, 0.5F, 0.25F, 0.125F};

/// The length multipliers: plain, dotted, double dotted, and the triplet's two thirds.
inline constexpr std::array<float, 4> kDurationExtras{1.0F, 1.5F, 1.75F, static_cast<float>(2.0 / 3.0)};

struct MelodyNote {
  int16_t Octave = 0;         ///< octave number of I-Melody (its octave 3 holds a = 440 Hz), or kNoOctave
  std::string Note;           ///< "c", "#c", "&d", ... "b"; "r" for a pause; empty for a command
  std::string Special;        ///< the command's own token ("ledon", "V10", "(", "@2)"), else empty
  float DurationExtra = 0;    ///< one of kDurationExtras; 0 in a decoded command
  float Duration = 0;         ///< beats, one of kDurations; 0 in a decoded command
  bool NotSupported = false;  ///< the mode it was last encoded for cannot express it

  bool operator==(const MelodyNote&) const = default;
};

/// True for a pause: a Note that contains an "r" of either case.
bool IsPause(const MelodyNote& note);

/// The index of `value` in kDurations or kDurationExtras, -1 when it is none of them.
int DurationIndex(float value);
int DurationExtraIndex(float value);

/// A command record with the given token, as the decoders make it: no octave, no length.
MelodyNote CommandNote(std::string_view special);

}  // namespace trillomat
