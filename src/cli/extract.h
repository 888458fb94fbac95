// The part of a melody that a message is about, as lines to stand below it: that of the text with a caret
// under the place, or where no text is at hand the tokens around an element.
#pragma once

#include <string>
#include <string_view>

#include "cli/failure.h"
#include "core/format_mode.h"
#include "core/refusal.h"
#include "core/song.h"

namespace trillomat {

/// `place`, which is one in `text`, with its column in characters: they differ from bytes in UTF-8.
Refusal InCharacters(Refusal place, std::string_view text);

/// The line of `text` that `place` (in bytes) stands in; empty where it is none. A line that is valid UTF-8
/// is that, any other Windows-1252.
std::string ExtractOf(std::string_view text, const Refusal& place, std::string_view note = {});

/// The elements around that at `index`, in the notation of `mode`.
std::string ExtractOf(const ElementList& elements, size_t index, FormatMode mode, std::string_view note);

/// Why the text of the file `name` (UTF-8) was refused, as it is or as it was tidied.
Refused RefusedText(const std::string& name, std::string_view text, const Refusal& refusal, bool isTidied);

}  // namespace trillomat
