// The melody as a list of elements, and the two defaults that the RTTTL notation leaves out.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/melody_note.h"

namespace trillomat {

using MelodyList = std::vector<MelodyNote>;

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

/// How often each octave of 3 to 6 and each duration occurs: what the defaults are chosen by.
class DefaultsCount {
 public:
  void Add(const MelodyNote& note) { Change(note, 1); }
  void Remove(const MelodyNote& note) { Change(note, -1); }

  /// What ComputeMelodyDefaults and ComputeRtttlHeaderDefaults give for the notes counted.
  MelodyDefaults Commonest() const;
  MelodyDefaults CommonestForHeader() const;

 private:
  void Change(const MelodyNote& note, int by);

  std::array<int64_t, 4> octaves_{};
  std::array<int64_t, kDurations.size()> durations_{};
};

/// The song being composed, with the cursor. The elements are read directly and changed through the
/// functions alone, which keep count, so that the defaults cost nothing however long the melody is.
class Melody {
 public:
  const MelodyList& Elements() const { return elements_; }
  bool IsEmpty() const { return elements_.empty(); }
  /// Index of the last element, -1 for an empty melody.
  int32_t UpperBound() const { return static_cast<int32_t>(elements_.size()) - 1; }
  /// The element at `index`, which must lie in 0 to UpperBound().
  const MelodyNote& At(int32_t index) const { return elements_[static_cast<size_t>(index)]; }

  /// Inserts before `index` (0 to UpperBound() + 1), replaces or removes the element there.
  void Insert(int32_t index, MelodyNote note);
  void Replace(int32_t index, MelodyNote note);
  void Remove(int32_t index);
  void Assign(MelodyList elements);
  void Clear() { Assign({}); }
  /// Stores the codec's verdict on the element at `index`.
  void MarkNotSupported(int32_t index, bool notSupported);

  MelodyDefaults ComputeMelodyDefaults() const { return count_.Commonest(); }

  /// Index of the element directly left of the insertion point; -1 is before the first element.
  int32_t lCurrentIndex = 0;

 private:
  MelodyList elements_;
  DefaultsCount count_;
};

}  // namespace trillomat
