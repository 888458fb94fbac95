#include "core/song.h"

#include <algorithm>
#include <iterator>

namespace trillomat {
namespace {

constexpr int16_t kLowestCounted = 3;

}  // namespace

DefaultsCount::DefaultsCount(const ElementList& elements) {
  for (const Element& element : elements) Add(element);
}

// max_element gives the first of equal values: the lower octave, the longer duration.
TokenDefaults DefaultsCount::Commonest() const {
  const auto octave = std::max_element(octaves_.begin(), octaves_.end()) - octaves_.begin();
  const auto duration = std::max_element(durations_.begin(), durations_.end()) - durations_.begin();
  return {static_cast<int16_t>(kLowestCounted + octave), kDurations.at(static_cast<size_t>(duration))};
}

TokenDefaults DefaultsCount::CommonestForHeader() const {
  TokenDefaults defaults = Commonest();
  const int64_t best = *std::max_element(octaves_.begin(), octaves_.end());
  if (std::count(octaves_.begin(), octaves_.end(), best) > 1) defaults.octave = kLowestCounted;
  return defaults;
}

void DefaultsCount::Change(const Element& element, int by) {
  const int octave = element.octave - kLowestCounted;
  if (octave >= 0 && octave < std::ssize(octaves_)) octaves_.at(static_cast<size_t>(octave)) += by;
  const int duration = DurationIndex(element.duration);
  if (duration >= 0) durations_.at(static_cast<size_t>(duration)) += by;
}

}  // namespace trillomat
