#include "core/melody_note.h"

#include <algorithm>

namespace trillomat {
namespace {

template <size_t N>
int IndexOf(const std::array<float, N>& values, float value) {
  const auto* const found = std::find(values.begin(), values.end(), value);
  return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

}  // namespace

bool IsPause(const MelodyNote& note) { return note.Note.find_first_of("rR") != std::string::npos; }

int DurationIndex(float value) { return IndexOf(kDurations, value); }

int DurationExtraIndex(float value) { return IndexOf(kDurationExtras, value); }

MelodyNote CommandNote(std::string_view special) {
  MelodyNote note;
  note.Octave = kNoOctave;
  note.Special = special;
  return note;
}

}  // namespace trillomat
