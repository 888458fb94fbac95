// Whether notes need no tidying.
#pragma once

#include <string_view>

#include "core/format_mode.h"

namespace trillomat {

/// Whether the reader of `mode` (not RTTTL, whose notes need a header) understands every one of these notes,
/// which stand without what surrounds them in a file.
bool ReadsWhole(std::string_view notes, FormatMode mode);

}  // namespace trillomat
