// A song as a listing for people and as JSON for programs. Both are UTF-8. Each element stands there with
// its token in the notation of `mode`; in RTTTL always with its duration and octave, so that a token means
// the same wherever it stands.
#pragma once

#include <string>

#include "core/format_mode.h"
#include "core/services.h"
#include "core/song.h"

namespace trillomat {

/// The song information, then a line for each element.
std::string ShowText(const Song& song, FormatMode mode, const Services& services);

/// The same as one JSON object with the members "header" and "elements".
std::string ShowJson(const Song& song, FormatMode mode, const Services& services);

}  // namespace trillomat
