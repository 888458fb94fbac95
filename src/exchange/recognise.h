// What a text is, by its look, whatever its file's name says; and the tunes of a text that holds several.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/format_mode.h"

namespace trillomat {

/// The format that `text` looks like: its markers and tags, an RTTTL header, or nothing but tone letters.
/// Nothing for a text that looks like none, or like several.
std::optional<FormatMode> RecognisedFormat(std::string_view text);

/// The RTTTL tunes of a text, parts of it without what stands around them: usually one, several where they
/// stand on lines of their own. None when there is none.
std::vector<std::string_view> TunesIn(std::string_view text);

}  // namespace trillomat
