// The four melody formats, each a mode of the composer, and the one table of what each can hold.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace trillomat {

enum class FormatMode : int16_t { IMelody = 0, EMelody = 1, Rtttl = 2, Melody = 3 };
inline constexpr int kFormatModes = 4;

/// What one mode can express and offer. Ranges include both ends.
struct ModeLimits {
  FormatMode mode;
  std::string_view caption;    ///< the mode's name in the menu
  std::string_view extension;  ///< of its files, without the dot
  std::string_view rangeNote;  ///< what the octave slider's note says
  int16_t lowestOctave;        ///< internal octave numbers
  int16_t highestOctave;
  int16_t elementsShown;  ///< elements that each half of the text view shows
  int32_t lowestTempo;    ///< beats per minute
  int32_t highestTempo;
  std::optional<int32_t> forcedTempo;  ///< set on entering the mode
  int firstDuration;                   ///< indices into kDurations that the mode has codes for
  int lastDuration;
  int selectedDuration;  ///< index selected on entering the mode, -1 keeps the selection
  int lastExtra;         ///< last index into kDurationExtras that the mode can write
  int selectedExtra;     ///< index selected on entering the mode, -1 keeps the selection
  bool commands;         ///< phone commands and repeats can be entered, and are performed
  int songInfoRows;      ///< rows of the song-information panel that are shown

  constexpr bool HasOctave(int octave) const { return octave >= lowestOctave && octave <= highestOctave; }
  constexpr bool HasDuration(int index) const { return index >= firstDuration && index <= lastDuration; }
  constexpr bool HasExtra(int index) const { return index >= 0 && index <= lastExtra; }
};

/// The table, in the order of the mode numbers.
extern const std::array<ModeLimits, kFormatModes> kModeLimits;

const ModeLimits& LimitsOf(FormatMode mode);

/// The mode whose files end in `extension` (without the dot, any case); nothing for an unknown one.
std::optional<FormatMode> ModeOfExtension(std::string_view extension);

}  // namespace trillomat
