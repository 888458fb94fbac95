// The melody as a list of elements, and the two defaults that the RTTTL notation leaves out.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/melody_note.h"

namespace trillomat {

using MelodyList = std::vector<MelodyNote>;

/// The song being composed, with the cursor.
struct Melody {
  MelodyList elements;
  /// Index of the element directly left of the insertion point; -1 is before the first element.
  int32_t lCurrentIndex = 0;

  /// Index of the last element, -1 for an empty melody.
  int32_t UpperBound() const { return static_cast<int32_t>(elements.size()) - 1; }
};

/// What an RTTTL token without its own octave or duration stands for.
struct MelodyDefaults {
  int16_t octave = 4;     ///< internal octave number; -1 for no default
  float duration = 1.0F;  ///< beats; -1.0 for no default

  bool operator==(const MelodyDefaults&) const = default;
};

/// The commonest octave of 3 to 6 and the commonest duration. Ties go to the lower octave and to the
/// longer duration; with nothing to count they are 3 and 4.0.
MelodyDefaults ComputeMelodyDefaults(std::span<const MelodyNote> notes);

/// The same as an RTTTL header announces it: a tie for the commonest octave gives 3.
MelodyDefaults ComputeRtttlHeaderDefaults(std::span<const MelodyNote> notes);

}  // namespace trillomat
