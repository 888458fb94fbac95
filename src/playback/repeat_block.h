// The repeat marks of a song: "(" starts a block, "@2)" plays it twice in all and "@0)" for ever.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "core/element.h"
#include "core/event_pump.h"
#include "core/log.h"

namespace trillomat {

/// Counts the rounds. There is one counter, so blocks do not nest: an inner "(" restarts the count.
class RepeatBlock {
 public:
  /// How often an endless block is played in all; 0 plays it for ever.
  int32_t endlessRounds = 0;
  /// For a walk that must end, over a melody that nothing changes meanwhile. Blocks that share the
  /// counter can send each other back for ever, though each has a finite count: a repeat end that would
  /// jump a second time from the same count is passed then. And where no start lies before a repeat end,
  /// later ones look no further back than to it.
  bool leaveCycles = false;

  int16_t Counter() const { return counter_; }

  /// A "(" is performed.
  void Start();
  /// The repeat end `command` at `index` is performed: the number of elements to go back, 0 to go on.
  /// Lets events run while it looks for the start. Logs a missing start and a count without an end.
  int32_t End(std::string_view command, int32_t index, const ElementList& elements, Log& log,
              EventPump& pump);

 private:
  bool BlockIsDone(int32_t count) const;
  bool ClosesCycle(int32_t index);
  std::optional<int32_t> DistanceToStart(int32_t index, const ElementList& elements, EventPump& pump);

  int16_t counter_ = 0;
  int32_t searchFrom_ = 0;                       ///< no start lies before this index
  std::set<std::pair<int32_t, int16_t>> jumps_;  ///< index and counter of the jumps since the last "("
};

}  // namespace trillomat
