// The text of the recovery file, which keeps every field of a song exactly. One line each, fields separated
// by tabs; "\", tab, CR, LF and NUL inside a field are "\" and two hexadecimal digits:
//
//   trillomat-recovery 2
//   kept     TIME FILE
//   mode     0
//   song     NAME COMPOSER BPM STYLE VOLUME VERSION FORMAT LOOP
//   note     OCTAVE NOTE COMMAND EXTRA DURATION 0       for each element, in order
//   end      NUMBER-OF-ELEMENTS CHECKSUM
//
// TIME is in milliseconds since 1970, FILE the name of the song's file, empty for none; earlier versions
// wrote "trillomat-recovery 1" and no such line. Numbers are decimal, the lengths the shortest decimals that
// give the same single-precision number. The last field of a note is not used any more. The checksum is the
// 64-bit FNV-1a hash of all bytes before the last line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/song.h"

namespace trillomat {

struct RecoveredSong {
  FormatMode mode = FormatMode::IMelody;
  Song song = {};
  std::string file = {};  ///< the name of the file that it belonged to, in the system's bytes
  int64_t time = 0;       ///< when it was written, in milliseconds since 1970; 0 where the text does not tell

  bool operator==(const RecoveredSong&) const = default;
};

/// `file` and `time` as in RecoveredSong.
std::string WriteRecovery(const Song& song, FormatMode mode, std::string_view file, int64_t time);

/// What WriteRecovery wrote; nothing for any other bytes.
std::optional<RecoveredSong> ReadRecovery(std::string_view text);

/// The part of such a text that holds mode, song information and elements: the same for the same song,
/// whatever file it belonged to and whenever it was written. Empty for a damaged text.
std::string_view SongPartOf(std::string_view text);

}  // namespace trillomat
