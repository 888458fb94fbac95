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

/// The smallest number of octaves that brings `elements` into `range`: up, or below 0 down. Nothing when they
/// span more octaves than the range. Each tone that it moves beyond the octaves 0 to 8 is logged.
std::optional<int> MoveInto(const ElementList& elements, OctaveRange range, Log& log);

/// Moves `elements` as MoveInto says; false, with the elements as they were, where it gives nothing.
bool AdaptRange(ElementList& elements, OctaveRange range, Log& log);

/// The first element whose octave is too far from those before it, where MoveInto gives nothing.
std::optional<size_t> FirstBeyond(const ElementList& elements, OctaveRange range);

/// Plain words on why `elements` do not fit into the octaves of `phone` ("the Nokia Composer").
std::string RangeRefusal(const ElementList& elements, OctaveRange range, std::string_view phone);

}  // namespace trillomat
