// The text of the recovery file, which keeps every field of a song exactly. One line each, fields separated
// by tabs; "\", tab, CR, LF and NUL inside a field are "\" and two hexadecimal digits:
//
//   trillomat-recovery 1
//   mode     0
//   song     NAME COMPOSER BPM STYLE VOLUME VERSION FORMAT LOOP
//   note     OCTAVE NOTE COMMAND EXTRA DURATION 0       for each element, in order
//   end      NUMBER-OF-ELEMENTS CHECKSUM
//
// Numbers are decimal, the lengths the shortest decimals that give the same single-precision number. The
// last field of a note is not used any more. The checksum is the 64-bit FNV-1a hash of all bytes before the
// last line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/song.h"

namespace trillomat {

struct RecoveredSong {
  FormatMode mode = FormatMode::IMelody;
  Song song;

  bool operator==(const RecoveredSong&) const = default;
};

std::string WriteRecovery(const Song& song, FormatMode mode);

/// What WriteRecovery wrote; nothing for any other bytes.
std::optional<RecoveredSong> ReadRecovery(std::string_view text);

}  // namespace trillomat
