// Melody text that was copied anywhere, to be pasted into the song.
#pragma once

#include <string_view>

#include "formats/formats.h"

namespace trillomat {

/// Reads `text` (Windows-1252) as a file of `mode` or, failing that, as any of the texts that can be
/// imported. Its song information counts for nothing. Refused with the words of the reader of `mode` where
/// nobody takes it.
ReadResult ReadPasted(std::string_view text, FormatMode mode, const Services& services);

}  // namespace trillomat
