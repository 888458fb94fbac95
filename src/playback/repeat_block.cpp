#include "playback/repeat_block.h"

#include <algorithm>
#include <limits>

#include "core/number_text.h"

namespace trillomat {

void RepeatBlock::Start() {
  counter_ = 0;
  jumps_.clear();  // no later jump reaches back over a "(", so none of these can come again
}

int32_t RepeatBlock::End(std::string_view command, int32_t index, const ElementList& elements, Log& log,
                         EventPump& pump) {
  const auto count = RoundToInt32(LeadingNumber(command.substr(std::min<size_t>(1, command.size()))));
  if (!count) {
    log.WriteLog("Error in PlayElement", 1);
    return 0;
  }
  if (BlockIsDone(*count)) {
    counter_ = 0;
    return 0;
  }
  const std::optional<int32_t> distance = DistanceToStart(index, elements, pump);
  if (!distance) return 0;
  if (*distance < 0) {
    if (index != 0) log.WriteLog("Can not find the start of the Repeat", 2);
    return 0;
  }
  if (leaveCycles && ClosesCycle(index)) {
    counter_ = 0;
    return 0;
  }
  if (counter_ < std::numeric_limits<int16_t>::max()) ++counter_;
  return *distance;
}

// The distance back to the nearest "(" at or before `index`, -1 when there is none; nothing when the
// program is ending.
std::optional<int32_t> RepeatBlock::DistanceToStart(int32_t index, const ElementList& elements,
                                                    EventPump& pump) {
  for (int32_t at = index; at >= searchFrom_; --at) {
    const auto position = static_cast<size_t>(at);
    if (position < elements.size() && elements[position].Command() == "(") return index - at;
    if (!pump.PumpEvents()) return std::nullopt;
  }
  if (leaveCycles) searchFrom_ = index;
  return -1;
}

bool RepeatBlock::BlockIsDone(int32_t count) const {
  if (count == 0) count = endlessRounds;
  return count != 0 && count < counter_ + 2;
}

// The state of a walk is its position and the counter: the same jump again means the same for ever.
bool RepeatBlock::ClosesCycle(int32_t index) { return !jumps_.emplace(index, counter_).second; }

}  // namespace trillomat
