// Moves a melody as a whole by octaves, so that every tone lies in the octaves that a phone's composer
// has. Tones, lengths and order stay. Octaves are internal numbers; elements without one are skipped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/element.h"
#include "core/log.h"

namespace trillomat {

/// The octaves that a phone's composer has, both ends included.
struct OctaveRange {
  int16_t low;
  int16_t high;
};

/// Moves `elements` into `range` by the smallest number of octaves. Gives how many octaves they went up, 0
/// when they went down or stayed; nothing, with the elements as they were, when they span more octaves than
/// the range.
std::optional<int16_t> AdaptRange(ElementList& elements, OctaveRange range, Log& log);

/// The first element whose octave is too far from those before it, where AdaptRange gives nothing.
std::optional<size_t> FirstBeyond(const ElementList& elements, OctaveRange range);

/// Plain words on why `elements` do not fit into the octaves of `phone` ("the Nokia Composer").
std::string RangeRefusal(const ElementList& elements, OctaveRange range, std::string_view phone);

}  // namespace trillomat
