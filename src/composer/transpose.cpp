#include "composer/transpose.h"

#include <algorithm>
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

// Gives one element after the other its new octave; see Transposed.
class OctaveMove {
 public:
  explicit OctaveMove(int by) : by_(by) {}

  int16_t Next(const Element& element) {
    if (element.octave != kNoOctave) octave_ = element.octave + by_;
    return static_cast<int16_t>(octave_);
  }

 private:
  int by_;
  int octave_ = 0;
};

}  // namespace

std::optional<std::vector<int16_t>> MovedOctaves(const Document& document, ElementRange range, int16_t by,
                                                 Log& log) {
  std::vector<int16_t> octaves(static_cast<size_t>(range.Size()));
  if (octaves.empty()) return octaves;
  log.WriteLog("Change Scale started", 1);
  const ModeLimits& limits = LimitsOf(document.Mode());
  OctaveMove move(by);
  auto next = octaves.begin();
  document.ForEach(range, [&](const Element& element) { *next++ = move.Next(element); });
  // Counted before one is looked for, because counting is many times as fast and there is none nearly always.
  const auto isOutside = [&limits](int16_t octave) { return !limits.HasOctave(octave); };
  if (std::count_if(octaves.begin(), octaves.end(), isOutside) == 0) return octaves;
  LogOutside(range.begin + (std::find_if(octaves.begin(), octaves.end(), isOutside) - octaves.begin()) + 1,
             limits, log);
  return std::nullopt;
}

std::optional<ElementList> Transposed(ElementList elements, int16_t octaves, FormatMode mode, Log& log) {
  if (elements.empty()) return elements;
  log.WriteLog("Change Scale started", 1);
  const ModeLimits& limits = LimitsOf(mode);
  OctaveMove move(octaves);
  for (Element& element : elements) element.octave = move.Next(element);
  const auto outside = std::find_if(elements.begin(), elements.end(), [&limits](const Element& element) {
    return !limits.HasOctave(element.octave);
  });
  if (outside == elements.end()) return elements;
  LogOutside(outside - elements.begin() + 1, limits, log);
  return std::nullopt;
}

std::optional<ElementList> TransposedBySemitones(ElementList elements, int semitones, FormatMode mode,
                                                 Log& log, int64_t first) {
  for (Element& element : elements) {
    const bool isTone = SemitoneOf(element.Note()) >= 0;
    element = Moved(std::move(element), semitones);
    if (!isTone || LimitsOf(mode).HasOctave(element.octave)) continue;
    LogOutside(first + (&element - elements.data()), LimitsOf(mode), log);
    return std::nullopt;
  }
  return elements;
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
