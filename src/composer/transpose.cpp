#include "composer/transpose.h"

#include <string>
#include <utility>

#include "core/number_text.h"
#include "core/tone.h"

namespace trillomat {
namespace {

constexpr int kSemitones = static_cast<int>(kPianoTones.size());

void LogOutside(int64_t number, const ModeLimits& limits, Log& log) {
  log.WriteLog("All notes must be within scale" + SignedText(limits.lowestOctave) + "-" +
                   DecimalText(limits.highestOctave) + ", currently note" + SignedText(number) +
                   " is incorrect",
               2);
}

}  // namespace

std::optional<ElementList> Transposed(std::span<const Element> elements, int16_t octaves, FormatMode mode,
                                      Log& log, int64_t first) {
  ElementList moved(elements.begin(), elements.end());
  if (moved.empty()) return moved;
  log.WriteLog("Change Scale started", 1);
  const ModeLimits& limits = LimitsOf(mode);
  int octave = 0;
  for (Element& element : moved) {
    if (element.octave != kNoOctave) octave = element.octave + octaves;
    if (!limits.HasOctave(octave)) {
      LogOutside(first + (&element - moved.data()), limits, log);
      return std::nullopt;
    }
    element.octave = static_cast<int16_t>(octave);
  }
  return moved;
}

std::optional<ElementList> TransposedBySemitones(std::span<const Element> elements, int semitones,
                                                 FormatMode mode, Log& log, int64_t first) {
  ElementList moved;
  moved.reserve(elements.size());
  for (const Element& element : elements) {
    moved.push_back(Moved(element, semitones));
    if (SemitoneOf(element.Note()) < 0 || LimitsOf(mode).HasOctave(moved.back().octave)) continue;
    LogOutside(first + static_cast<int64_t>(moved.size()) - 1, LimitsOf(mode), log);
    return std::nullopt;
  }
  return moved;
}

Element Moved(Element element, int semitones) {
  const int semitone = SemitoneOf(element.Note());
  if (semitone < 0) return element;
  const int sum = semitone + semitones;
  const int octaves = (sum - (sum % kSemitones + kSemitones) % kSemitones) / kSemitones;
  element.octave = static_cast<int16_t>(element.octave + octaves);
  element.SetNote(kPianoTones.at(static_cast<size_t>(sum - octaves * kSemitones)));
  return element;
}

}  // namespace trillomat
