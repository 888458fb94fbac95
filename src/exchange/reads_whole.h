// Whether a text needs no tidying.
#pragma once

#include <string_view>

#include "core/format_mode.h"

namespace trillomat {

/// Whether the reader of `mode` reads the text and understands every element of it.
bool ReadsWhole(std::string_view text, FormatMode mode);

/// The same for notes alone, without what surrounds them in a file of I-Melody, E-Melody or Melody.
bool NotesReadWhole(std::string_view notes, FormatMode mode);

}  // namespace trillomat
