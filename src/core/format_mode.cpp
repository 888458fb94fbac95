#include "core/format_mode.h"

#include "core/ascii.h"

namespace trillomat {

const std::array<ModeLimits, kFormatModes> kModeLimits{{
    {.mode = FormatMode::IMelody,
     .caption = "I-Melody",
     .extension = "imy",
     .rangeNote = "",
     .lowestOctave = 0,
     .highestOctave = 8,
     .elementsShown = 10,
     .lowestTempo = 25,
     .highestTempo = 900,
     .forcedTempo = std::nullopt,
     .firstDuration = 0,
     .lastDuration = 5,
     .selectedDuration = -1,
     .lastExtra = 3,
     .selectedExtra = -1,
     .commands = true,
     .songInfoRows = 7},
    {.mode = FormatMode::EMelody,
     .caption = "E-Melody",
     .extension = "emy",
     .rangeNote = "Only octave 3-5 supported",
     .lowestOctave = 3,
     .highestOctave = 5,
     .elementsShown = 20,
     .lowestTempo = 200,
     .highestTempo = 200,
     .forcedTempo = 200,
     .firstDuration = 0,
     .lastDuration = 3,
     .selectedDuration = 2,
     .lastExtra = 0,
     .selectedExtra = 0,
     .commands = false,
     .songInfoRows = 0},
    {.mode = FormatMode::Rtttl,
     .caption = "RTTTL",
     .extension = "rtx",
     .rangeNote = "Only octave 3-6 supported",
     .lowestOctave = 3,
     .highestOctave = 6,
     .elementsShown = 17,
     .lowestTempo = 25,
     .highestTempo = 900,
     .forcedTempo = std::nullopt,
     .firstDuration = 0,
     .lastDuration = 5,
     .selectedDuration = -1,
     .lastExtra = 1,
     .selectedExtra = 0,
     .commands = false,
     .songInfoRows = 6},
    {.mode = FormatMode::Melody,
     .caption = "Melody",
     .extension = "mel",
     .rangeNote = "Only octave 3-4 supported",
     .lowestOctave = 3,
     .highestOctave = 4,
     .elementsShown = 20,
     .lowestTempo = 200,
     .highestTempo = 200,
     .forcedTempo = 200,
     .firstDuration = 2,
     .lastDuration = 3,
     .selectedDuration = 3,
     .lastExtra = 0,
     .selectedExtra = 0,
     .commands = false,
     .songInfoRows = 0},
}};

const ModeLimits& LimitsOf(FormatMode mode) { return kModeLimits.at(static_cast<size_t>(mode)); }

std::optional<FormatMode> ModeOfExtension(std::string_view extension) {
  for (const ModeLimits& limits : kModeLimits) {
    if (EqualNoCase(limits.extension, extension)) return limits.mode;
  }
  return std::nullopt;
}

}  // namespace trillomat
