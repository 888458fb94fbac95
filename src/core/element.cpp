#include "core/element.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace trillomat {
namespace {

template <size_t N>
int IndexOf(const std::array<float, N>& values, float value) {
  // Without a branch: the lengths of a melody come in no order that the processor could foretell. The bits
  // can be compared because none of the values is 0, which has two forms.
  int found = -1;
  for (size_t i = 0; i < N; ++i) {
    const bool same = std::bit_cast<uint32_t>(values[i]) == std::bit_cast<uint32_t>(value);
    found = same ? static_cast<int>(i) : found;
  }
  return found;
}

}  // namespace

Element Tone(std::string_view note, int16_t octave, float duration, float extra) {
  Element element;
  element.SetNote(note);
  element.octave = octave;
  element.duration = duration;
  element.extra = extra;
  return element;
}

Element Pause(float duration, float extra) { return Tone("r", kNoOctave, duration, extra); }

Element Command(std::string_view token) {
  Element element;
  element.SetCommand(token);
  element.octave = kNoOctave;
  return element;
}

Element OctavesUp(const Element& element, int octaves) {
  using Limits = std::numeric_limits<int16_t>;
  Element moved = element;
  if (element.octave == kNoOctave) return moved;
  moved.octave =
      static_cast<int16_t>(std::clamp<int>(element.octave + octaves, Limits::min(), Limits::max()));
  return moved;
}

bool IsPause(const Element& element) { return element.Note().find_first_of("rR") != std::string_view::npos; }

int DurationIndex(float value) { return IndexOf(kDurations, value); }

int DurationExtraIndex(float value) { return IndexOf(kDurationExtras, value); }

}  // namespace trillomat
