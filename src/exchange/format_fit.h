// Whether a file format holds a song without loss, by writing it and reading it back.
#pragma once

#include "core/format_mode.h"
#include "core/song.h"

namespace trillomat {

/// Whether every tone, pause and command of the song comes back from a file of `mode` as it was, flats as the
/// sharps that they sound like. False for a song without elements. The song information counts for nothing.
bool FormatHolds(FormatMode mode, const Song& song);

}  // namespace trillomat
