#include "playback/played_elements.h"

#include "playback/play_trace.h"
#include "playback/played_length.h"

namespace trillomat {
namespace {

bool IsHeard(const PlayedElement& played) {
  return played.kind == ElementKind::Pause || (played.kind == ElementKind::Tone && played.frequency > 0);
}

}  // namespace

Result<ElementList> PlayedElements(const Document& document, int32_t endlessRounds,
                                   const Services& services) {
  ElementList elements;
  PlayedLength length(document.Size());
  const auto take = [&](const TraceStep& step) {
    length.Add(step.played);
    if (IsHeard(step.played)) elements.push_back(document.At(step.index));
    return !length.ExceedsHour() && !length.RepeatsTooOften();
  };
  if (TraceMelody(document, endlessRounds, services, take)) return elements;
  if (length.ExceedsHour()) return Refusal{.why = "the melody has more than an hour of sound"};
  if (length.RepeatsTooOften()) {
    return Refusal{.why = "the melody plays more than 30,000 elements over again"};
  }
  return Refusal{.why = std::string(kProgramEnding)};
}

}  // namespace trillomat
