// The lengths that the tones and pauses of a mode can have, in the units of MIDI notes.
#pragma once

#include <cstdint>
#include <vector>

#include "core/element.h"
#include "core/format_mode.h"

namespace trillomat {

/// A length that one element can have.
struct MidiLength {
  int64_t units;
  float duration;
  float extra;
};

class MidiLengths {
 public:
  explicit MidiLengths(FormatMode mode);

  /// The shortest length without an extra; the shortest of all triplets, or 0 where the mode has none.
  int64_t Grid() const { return grid_; }
  int64_t TripletGrid() const { return tripletGrid_; }

  /// Whether one element can be so long.
  bool Has(int64_t units) const { return Nearest(units).units == units; }
  const MidiLength& Nearest(int64_t units) const;
  /// The longest that is no longer, or the shortest of all.
  const MidiLength& LongestIn(int64_t units) const;

  /// Few lengths, the longest first, that together fill as much of `units` as lengths can.
  std::vector<MidiLength> Filling(int64_t units) const;
  /// Whether lengths fill `units` to the end.
  bool Fill(int64_t units) const { return Filled(units) == units; }

 private:
  struct Sum {
    int cost = 0;     ///< of the cheapest lengths that make the sum; 0 for none
    size_t last = 0;  ///< one of these
  };

  int64_t Filled(int64_t units) const;
  int64_t Wholes(int64_t units) const;
  void FindSums();

  std::vector<MidiLength> lengths_;  // the shortest first
  int64_t grid_ = 0;
  int64_t tripletGrid_ = 0;
  int64_t longest_ = 0;    // without an extra
  std::vector<Sum> sums_;  // up to twice that
};

}  // namespace trillomat
