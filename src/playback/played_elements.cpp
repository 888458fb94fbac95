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
    return length.WhyTooMuch().empty();
  };
  if (TraceMelody(document, endlessRounds, services, take)) return elements;
  const std::string_view tooMuch = length.WhyTooMuch();
  return Refusal{.why = std::string(tooMuch.empty() ? kProgramEnding : tooMuch)};
}

}  // namespace trillomat
