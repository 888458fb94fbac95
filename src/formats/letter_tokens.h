// The note text that the EMelody and Melody formats share, in files and in pasted text: tokens without
// a separator, each ended by its tone letter.
//
//   ++#c.(b)dRe   is   "++#c."  "(b)d"  "R"  "e"
#pragma once

#include <string_view>

#include "core/format_mode.h"
#include "core/song_header.h"
#include "core/workspace.h"

namespace trillomat {

/// The song information of a format that carries none: "Unknown" at 200 beats per minute, all other
/// texts empty. Loop is left as it is.
void SetUnknownSong(SongHeader& header);

/// Removes layout from `notes`, turns p, P and "-" into pauses and h, H into b, cuts the tokens and
/// appends their records in `mode` to ws.ImportMelody. A remainder that ends no token is logged
/// ("Critical error when converting!!!!", level 1) and throws QuietFailure; a text without any token
/// throws RunTimeFault.
void AppendLetterTokens(std::string_view notes, FormatMode mode, Workspace& ws);

}  // namespace trillomat
