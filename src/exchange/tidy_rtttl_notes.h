// Tidying the notes of an RTTTL text, token by token.
#pragma once

#include <string>
#include <string_view>

#include "core/song.h"
#include "exchange/tidy_text.h"

namespace trillomat {

/// Passes `notes`, which the rest of `text` begins with. Tokens that are understood with `defaults` stay.
void TidyRtttlNotes(std::string_view notes, const TokenDefaults& defaults, TidyText& text);

/// Whether at least one token of `notes` is understood with the published defaults.
bool HoldsRtttlNotes(std::string_view notes);

/// The length of RTTTL (1 to 32, a power of two) that is nearest by ratio to the number of these digits, "4"
/// for 0.
std::string NearestRtttlLength(std::string_view digits);
/// The octave of RTTTL that is nearest, as a digit: `digits` where that is one that the composer has, else of
/// the published 4 to 7.
std::string NearestRtttlOctave(std::string_view digits);

}  // namespace trillomat
