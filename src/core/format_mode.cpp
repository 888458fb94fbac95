#include "core/format_mode.h"

#include "core/ascii.h"

namespace trillomat {

const std::array<ModeLimits, 4> kModeLimits{{
    {.mode = FormatMode::IMelody,
     .caption = "I-Melody",
     .extension = "imy",
     .rangeNote = "",
     .iOctaveMin = 0,
     .iOctaveMax = 8,
     .iNotesShown = 10,
     .lTempoMin = 25,
     .lTempoMax = 900,
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
     .iOctaveMin = 3,
     .iOctaveMax = 5,
     .iNotesShown = 20,
     .lTempoMin = 200,
     .lTempoMax = 200,
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
     .iOctaveMin = 3,
     .iOctaveMax = 6,
     .iNotesShown = 17,
     .lTempoMin = 25,
     .lTempoMax = 900,
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
     .iOctaveMin = 3,
     .iOctaveMax = 4,
     .iNotesShown = 20,
     .lTempoMin = 200,
     .lTempoMax = 200,
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
