#include "playback/repeat_block.h"

#include <algorithm>
#include <limits>

#include "core/number_text.h"

namespace trillomat {

void RepeatBlock::Start() {
  counter_ = 0;
  jumps_.clear();  // no later jump reaches back over a "(", so none of these can come again
}

int32_t RepeatBlock::End(std::string_view command, int32_t index, const Document& document,
                         const Services& services) {
  const auto count = RoundToInt32(LeadingNumber(command.substr(std::min<size_t>(1, command.size()))));
  if (!count) {
    services.log.WriteLog("Error in PlayElement", 1);
    return 0;
  }
  if (BlockIsDone(*count)) {
    counter_ = 0;
    return 0;
  }
  const std::optional<int32_t> start = FindStart(index, document, services.pump);
  if (!start) return 0;
  if (*start < 0) {
    if (index != 0) services.log.WriteLog("Can not find the start of the Repeat", 2);
    return 0;
  }
  if (leaveCycles && ClosesCycle(index)) {
    counter_ = 0;
    return 0;
  }
  if (counter_ < std::numeric_limits<int16_t>::max()) ++counter_;
  return index - std::max(*start, first_ - 1);
}

// The index of the nearest "(" at or before `index`, -1 when there is none; nothing when the program is
// ending. Events run, and another song may be there afterwards: the search goes on in that one.
std::optional<int32_t> RepeatBlock::FindStart(int32_t index, const Document& document, EventPump& pump) {
  const uint64_t revision = document.Revision();
  int32_t at = index;
  for (; at >= 0; --at) {
    if (searched_.Holds(document.Revision(), at)) {
      at = searched_.start;
      break;
    }
    if (document.HasElement(at) && document.At(at).Command() == "(") break;
    if (!pump.PumpEvents()) return std::nullopt;
  }
  if (document.Revision() == revision) searched_ = {revision, at, index};
  return at;
}

bool RepeatBlock::BlockIsDone(int32_t count) const {
  if (count == 0) count = endlessRounds;
  return count != 0 && count < counter_ + 2;
}

// A walk's state is its position and the counter: when the same jump comes again, it would do so for ever.
bool RepeatBlock::ClosesCycle(int32_t index) {
  constexpr int64_t kCounts = int64_t{std::numeric_limits<int16_t>::max()} + 1;
  return !jumps_.insert(index * kCounts + counter_).second;
}

}  // namespace trillomat
