#include "core/element.h"

#include <algorithm>

namespace trillomat {
namespace {

template <size_t N>
int IndexOf(const std::array<float, N>& values, float value) {
  const auto* const found = std::find(values.begin(), values.end(), value);
  return found == values.end() ? -1 : static_cast<int>(found - values.begin());
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

bool IsPause(const Element& element) { return element.Note().find_first_of("rR") != std::string_view::npos; }

int DurationIndex(float value) { return IndexOf(kDurations, value); }

int DurationExtraIndex(float value) { return IndexOf(kDurationExtras, value); }

}  // namespace trillomat
