#include "core/song.h"

#include <algorithm>
#include <iterator>

namespace trillomat {
namespace {

constexpr int16_t kLowestCounted = 3;

// How many of `octaves` are `octave`. A block is counted in 16 bits, so that the compiler can compare eight
// at a time.
int64_t CountOf(int16_t octave, std::span<const int16_t> octaves) {
  constexpr size_t kBlock = 4096;
  int64_t count = 0;
  while (!octaves.empty()) {
    uint16_t inBlock = 0;
    const auto block = octaves.first(std::min(kBlock, octaves.size()));
    for (const int16_t other : block) inBlock = static_cast<uint16_t>(inBlock + (other == octave ? 1 : 0));
    count += inBlock;
    octaves = octaves.subspan(block.size());
  }
  return count;
}

}  // namespace

// Without a branch: the octaves and lengths of a melody come in no order that the processor could foretell.
DefaultsCount::DefaultsCount(const ElementList& elements, int octaves) {
  std::array<int64_t, 6> octaveCounts{};  // octaves 3 to 6, between all that lie below and all that lie above
  std::array<int64_t, kDurations.size()> durationCounts{};
  for (const Element& element : elements) {
    const int octave = element.octave == kNoOctave ? kNoOctave : element.octave + octaves;
    ++octaveCounts[static_cast<size_t>(std::clamp(octave - kLowestCounted + 1, 0, 5))];
    for (size_t i = 0; i < durationCounts.size(); ++i) {
      durationCounts[i] += element.duration == kDurations[i] ? 1 : 0;
    }
  }
  std::copy_n(octaveCounts.begin() + 1, octaves_.size(), octaves_.begin());
  durations_ = durationCounts;
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

void DefaultsCount::ChangeOctaves(std::span<const int16_t> octaves, int by) {
  int16_t octave = kLowestCounted;
  for (int64_t& count : octaves_) count += by * CountOf(octave++, octaves);
}

}  // namespace trillomat
