// The spellings of the twelve tones, and their order in every table that is indexed by a tone.
#pragma once

#include <array>
#include <string_view>

namespace trillomat {

/// The seventeen spellings, from c to b: "#" is sharp and "&" is flat.
inline constexpr std::array<std::string_view, 17> kTones{"c",  "#c", "&d", "d",  "#d", "&e", "e",  "f", "#f",
                                                         "&g", "g",  "#g", "&a", "a",  "#a", "&b", "b"};

/// A value for each spelling, in the order of kTones.
template <typename Value>
using ToneTable = std::array<Value, kTones.size()>;

/// The index of `note` in kTones whatever its case, -1 for any other text.
int ToneIndex(std::string_view note);

}  // namespace trillomat
