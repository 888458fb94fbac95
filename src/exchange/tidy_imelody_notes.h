// Tidying the notes of an iMelody text.
#pragma once

#include <string_view>

#include "exchange/tidy_text.h"

namespace trillomat {

/// Passes `notes`, which the rest of `text` begins with, over one or more lines. They stay when the reader
/// understands all of them.
void TidyIMelodyNotes(std::string_view notes, TidyText& text);

}  // namespace trillomat
