// The text of the recovery file, which keeps every field of a melody exactly. One line each, fields
// separated by tabs; "\", tab, CR, LF and NUL inside a field are "\" and two hexadecimal digits:
//
//   trillomat-recovery 1
//   mode     0
//   song     NAME COMPOSER BPM STYLE VOLUME VERSION FORMAT LOOP
//   note     OCTAVE NOTE SPECIAL EXTRA DURATION NOTSUPPORTED     for each element, in order
//   end      NUMBER-OF-ELEMENTS CHECKSUM
//
// Numbers are decimal, the lengths the shortest decimals that give the same single-precision number. The
// checksum is the 64-bit FNV-1a hash of all bytes before the last line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/melody.h"
#include "core/song_header.h"
#include "core/workspace.h"

namespace trillomat {

struct RecoveredMelody {
  FormatMode mode = FormatMode::IMelody;
  SongHeader header;
  MelodyList elements;

  bool operator==(const RecoveredMelody&) const = default;
};

/// The text for the composed melody, the song information and the mode.
std::string WriteRecovery(const Workspace& ws);

/// What WriteRecovery wrote; nothing for any other bytes.
std::optional<RecoveredMelody> ReadRecovery(std::string_view text);

}  // namespace trillomat
