// The three parts of an RTTTL text as people write it: found by its keys, not by counting colons.
//
//   Rocky: Theme : d=4, o=5, b=120 : 8c,d
//   `--name--´    `----keys-----´  `notes´
#pragma once

#include <string_view>

namespace trillomat {

/// Parts of one text, in this order. Each may be empty, at its place.
struct RtttlShape {
  std::string_view name;
  std::string_view keys;
  std::string_view notes;
};

/// The parts of one tune. Without any key ("d=4"), what stands before the first ":" is the name and the rest
/// notes; without a ":" all of it.
RtttlShape RtttlShapeOf(std::string_view tune);

/// The parts as the reader cuts them, around the first two ":"; what of them is missing is empty.
RtttlShape ShapeByColons(std::string_view tune);

/// Whether the text begins with a key of a header: "d=4", "o = 5".
bool StartsWithRtttlKey(std::string_view text);

}  // namespace trillomat
