// How long a song sounds when it is played, and whether that is more than anybody would want in a file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

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

  /// Why that is too much, as in Refusal; empty where it is not. A block that repeats without end always is,
  /// because the count of its rounds stops at 32,767.
  std::string_view WhyTooMuch() const {
    if (milliseconds_ > kHour) return "the melody has more than an hour of sound";
    if (steps_ > mostSteps_) return "the melody plays more than 30,000 elements over again";
    return {};
  }

 private:
  static constexpr int64_t kHour = 3'600'000;  // milliseconds
  static constexpr size_t kMostRepeated = 30'000;

  size_t mostSteps_;
  size_t steps_ = 0;
  int64_t milliseconds_ = 0;
};

}  // namespace trillomat
