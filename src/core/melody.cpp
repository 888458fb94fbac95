#include "core/melody.h"

#include <algorithm>
#include <array>

namespace trillomat {
namespace {

constexpr int16_t kLowestCounted = 3;

struct Counts {
  std::array<size_t, 4> octaves{};
  std::array<size_t, kDurations.size()> durations{};
};

Counts CountElements(std::span<const MelodyNote> notes) {
  Counts counts;
  for (const MelodyNote& note : notes) {
    const int octave = note.Octave - kLowestCounted;
    if (octave >= 0 && octave < 4) ++counts.octaves.at(static_cast<size_t>(octave));
    const int duration = DurationIndex(note.Duration);
    if (duration >= 0) ++counts.durations.at(static_cast<size_t>(duration));
  }
  return counts;
}

// max_element gives the first of equal values: the lower octave, the longer duration.
MelodyDefaults FirstOfCommonest(const Counts& counts) {
  const auto* const octave = std::max_element(counts.octaves.begin(), counts.octaves.end());
  const auto* const duration = std::max_element(counts.durations.begin(), counts.durations.end());
  return {static_cast<int16_t>(kLowestCounted + (octave - counts.octaves.begin())),
          kDurations.at(static_cast<size_t>(duration - counts.durations.begin()))};
}

}  // namespace

MelodyDefaults ComputeMelodyDefaults(std::span<const MelodyNote> notes) {
  return FirstOfCommonest(CountElements(notes));
}

MelodyDefaults ComputeRtttlHeaderDefaults(std::span<const MelodyNote> notes) {
  const Counts counts = CountElements(notes);
  MelodyDefaults defaults = FirstOfCommonest(counts);
  const size_t best = *std::max_element(counts.octaves.begin(), counts.octaves.end());
  if (std::count(counts.octaves.begin(), counts.octaves.end(), best) > 1) {
    defaults.octave = kLowestCounted;
  }
  return defaults;
}

}  // namespace trillomat
