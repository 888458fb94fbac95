// How long a song sounds when it is played, and whether that is more than anybody would want in a file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "playback/player.h"

namespace trillomat {

class PlayedLength {
 public:
  /// `elements`: of the song, each counted once.
  explicit PlayedLength(size_t elements) : mostSteps_(elements + kMostRepeated) {}

  void Add(const PlayedElement& played) {
    ++steps_;
    milliseconds_ += std::max(0, played.length);
  }
  int64_t Milliseconds() const { return milliseconds_; }

  bool ExceedsHour() const { return milliseconds_ > kHour; }
  /// Whether more than 30,000 elements were played again. A block that repeats without end always comes to
  /// that, because the count of its rounds stops at 32,767.
  bool RepeatsTooOften() const { return steps_ > mostSteps_; }

 private:
  static constexpr int64_t kHour = 3'600'000;  // milliseconds
  static constexpr size_t kMostRepeated = 30'000;

  size_t mostSteps_;
  size_t steps_ = 0;
  int64_t milliseconds_ = 0;
};

}  // namespace trillomat
