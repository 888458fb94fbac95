// Moving a whole song up or down by octaves, all or nothing.
#pragma once

#include <cstdint>
#include <optional>

#include "core/element.h"
#include "core/format_mode.h"
#include "core/log.h"

namespace trillomat {

/// `elements` with `octaves` added to the octave of each. When one would leave the octave range of `mode`,
/// a level-2 message names the first such element (counting from 1), and the result is nothing. A pause or
/// command takes over the new octave of the tone before it, and counts as octave 0 when no tone came
/// before. No elements give none, without a word in the log.
std::optional<ElementList> Transposed(const ElementList& elements, int16_t octaves, FormatMode mode,
                                      Log& log);

}  // namespace trillomat
