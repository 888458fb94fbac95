// The lengths that the tones and pauses of a mode can have, in the units of MIDI notes.
#pragma once

#include <cstdint>
#include <vector>

#include "core/element.h"
#include "core/format_mode.h"

namespace trillomat {

/// A length that one element can have.
struct MidiLength {
  int64_t units;  ///< kMidiUnits to a quarter note
  float duration;
  float extra;
};

class MidiLengths {
 public:
  explicit MidiLengths(FormatMode mode);

  /// The shortest length without an extra, in units; and the shortest triplet, 0 where the mode has none.
  int64_t Grid() const { return grid_; }
  int64_t TripletGrid() const { return tripletGrid_; }

  /// Whether one element can be so long.
  bool Has(int64_t units) const { return Nearest(units).units == units; }
  /// The length that comes nearest.
  const MidiLength& Nearest(int64_t units) const;
  /// The longest length that is at most `units`, or the shortest of all.
  const MidiLength& LongestIn(int64_t units) const;

  /// Few and plain lengths, the longest first, that together fill as much of `units` as lengths can.
  std::vector<MidiLength> Filling(int64_t units) const;
  /// Whether some lengths together are exactly `units`.
  bool CanFill(int64_t units) const { return Filled(units) == units; }

 private:
  struct Sum {
    int cost = 0;     ///< of the cheapest lengths that make the sum; 0 where none do
    size_t last = 0;  ///< index of one of these lengths
  };

  int64_t Filled(int64_t units) const;
  int64_t Wholes(int64_t units) const;
  void FindSums();

  std::vector<MidiLength> lengths_;  ///< the shortest first
  int64_t grid_ = 0;
  int64_t tripletGrid_ = 0;
  int64_t longest_ = 0;    ///< without an extra
  std::vector<Sum> sums_;  ///< by units, up to twice the longest length
};

}  // namespace trillomat
