#include "core/melody.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace trillomat {
namespace {

constexpr int16_t kLowestCounted = 3;

DefaultsCount CountElements(std::span<const MelodyNote> notes) {
  DefaultsCount count;
  for (const MelodyNote& note : notes) count.Add(note);
  return count;
}

}  // namespace

MelodyDefaults ComputeMelodyDefaults(std::span<const MelodyNote> notes) {
  return CountElements(notes).Commonest();
}

MelodyDefaults ComputeRtttlHeaderDefaults(std::span<const MelodyNote> notes) {
  return CountElements(notes).CommonestForHeader();
}

// max_element gives the first of equal values: the lower octave, the longer duration.
MelodyDefaults DefaultsCount::Commonest() const {
  const auto octave = std::max_element(octaves_.begin(), octaves_.end()) - octaves_.begin();
  const auto duration = std::max_element(durations_.begin(), durations_.end()) - durations_.begin();
  return {static_cast<int16_t>(kLowestCounted + octave), kDurations.at(static_cast<size_t>(duration))};
}

MelodyDefaults DefaultsCount::CommonestForHeader() const {
  MelodyDefaults defaults = Commonest();
  const int64_t best = *std::max_element(octaves_.begin(), octaves_.end());
  if (std::count(octaves_.begin(), octaves_.end(), best) > 1) defaults.octave = kLowestCounted;
  return defaults;
}

void DefaultsCount::Change(const MelodyNote& note, int by) {
  const int octave = note.Octave - kLowestCounted;
  if (octave >= 0 && octave < std::ssize(octaves_)) octaves_.at(static_cast<size_t>(octave)) += by;
  const int duration = DurationIndex(note.Duration);
  if (duration >= 0) durations_.at(static_cast<size_t>(duration)) += by;
}

void Melody::Insert(int32_t index, MelodyNote note) {
  count_.Add(note);
  elements_.insert(elements_.begin() + index, std::move(note));
}

void Melody::Replace(int32_t index, MelodyNote note) {
  count_.Remove(At(index));
  count_.Add(note);
  elements_[static_cast<size_t>(index)] = std::move(note);
}

void Melody::Remove(int32_t index) {
  count_.Remove(At(index));
  elements_.erase(elements_.begin() + index);
}

void Melody::Assign(MelodyList elements) {
  elements_ = std::move(elements);
  count_ = CountElements(elements_);
}

void Melody::MarkNotSupported(int32_t index, bool notSupported) {
  elements_[static_cast<size_t>(index)].NotSupported = notSupported;
}

}  // namespace trillomat
