// How long a song sounds when it is performed, and whether that is more than anybody means to write.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "playback/player.h"

namespace trillomat {

class PlayedLength {
 public:
  /// Of a song of so many elements.
  explicit PlayedLength(size_t elements) : mostSteps_(elements + kMostRepeated) {}

  void Add(const PlayedElement& played) {
    ++steps_;
    milliseconds_ += std::max(0, played.length);
  }
  int64_t Milliseconds() const { return milliseconds_; }

  bool ExceedsHour() const { return milliseconds_ > kHour; }
  /// No block that repeats without end stays below it, for the count of its rounds stops at 32,767.
  bool RepeatsTooOften() const { return steps_ > mostSteps_; }

 private:
  static constexpr int64_t kHour = 3'600'000;  // milliseconds
  static constexpr size_t kMostRepeated = 30'000;

  size_t mostSteps_;
  size_t steps_ = 0;
  int64_t milliseconds_ = 0;
};

}  // namespace trillomat
