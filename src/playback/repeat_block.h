// The repeat marks of a song: "(" starts a block, "@2)" plays it twice in all and "@0)" for ever.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "core/services.h"
#include "document/document.h"

namespace trillomat {

/// Counts the rounds. There is one counter, so blocks do not nest: an inner "(" restarts the count.
class RepeatBlock {
 public:
  /// How often an endless block is played in all; 0 plays it for ever.
  int32_t endlessRounds = 0;
  /// For a walk that must come to an end, over a melody that nothing changes meanwhile. As blocks share the
  /// counter, they can send each other back for ever though each has a finite count. With this on, a repeat
  /// end does not jump a second time from the same count.
  bool leaveCycles = false;

  /// Playing begins at `first`: no jump goes back beyond it, and a block that it lies in counts as begun
  /// there. At the first element of a song the count stays what it was.
  void PlayFrom(int32_t first) {
    first_ = first;
    if (first > 0) Start();
  }

  int16_t Counter() const { return counter_; }

  /// Performs a "(".
  void Start();
  /// Performs the repeat end `command` ("@2)") at `index` of the song. Returns the number of elements to go
  /// back, 0 to go on. Lets events run while it looks for the start. Logs a missing start and a count that is
  /// too large.
  int32_t End(std::string_view command, int32_t index, const Document& document, const Services& services);

 private:
  /// What the last search found in the song of that `revision`: the "(" at `start` (-1: there is none), and
  /// no other from there up to `last`. So playing through a song looks at each element once.
  struct Searched {
    bool Holds(uint64_t now, int32_t index) const {
      return now == revision && index >= start && index <= last;
    }
    uint64_t revision = 0;
    int32_t start = -1;
    int32_t last = -1;
  };

  bool BlockIsDone(int32_t count) const;
  bool ClosesCycle(int32_t index);
  std::optional<int32_t> FindStart(int32_t index, const Document& document, EventPump& pump);

  int16_t counter_ = 0;
  int32_t first_ = 0;  ///< where playing began
  Searched searched_;
  std::unordered_set<int64_t> jumps_;  ///< index and counter of the jumps since the last "("
};

}  // namespace trillomat
