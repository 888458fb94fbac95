#include "exchange/range_adaptation.h"

#include <algorithm>
#include <limits>

#include "core/format_mode.h"

namespace trillomat {
namespace {

struct Extremes {
  int min;
  int max;
};

// What a scan starts from: the highest below the lowest, so that a melody without octaves fits every range.
constexpr Extremes kScanStart{.min = 10, .max = 0};

void Widen(Extremes& used, const Element& element) {
  if (element.octave == kNoOctave) return;
  used.min = std::min<int>(used.min, element.octave);
  used.max = std::max<int>(used.max, element.octave);
}

// Widens `start` to the octaves in use.
Extremes OctavesIn(const ElementList& elements, Extremes start) {
  for (const Element& element : elements) Widen(start, element);
  return start;
}

bool IsInside(const Extremes& used, OctaveRange range) {
  return used.max <= range.high && used.min >= range.low;
}

bool CanMoveInside(const Extremes& used, OctaveRange range) {
  return IsInside(used, range) || used.max - used.min <= range.high - range.low;
}

// I-Melody has the octaves of all modes.
bool IsInNoMode(int octave) { return !LimitsOf(FormatMode::IMelody).HasOctave(octave); }

void LogTonesInNoMode(const ElementList& elements, int octaves, Log& log) {
  for (const Element& element : elements) {
    if (element.octave == kNoOctave) continue;
    if (IsInNoMode(element.octave + octaves)) log.WriteLog("Crical Error when adapting TTL tones", 1);
  }
}

}  // namespace

std::optional<int> MoveInto(const ElementList& elements, OctaveRange range, Log& log) {
  const Extremes used = OctavesIn(elements, kScanStart);
  if (IsInside(used, range)) return 0;
  if (!CanMoveInside(used, range)) return std::nullopt;
  const int octaves = used.min < range.low ? range.low - used.min : std::min(0, range.high - used.max);
  if (octaves != 0) {
    // Looked for one by one only where there are any.
    if (IsInNoMode(used.min + octaves) || IsInNoMode(used.max + octaves)) {
      LogTonesInNoMode(elements, octaves, log);
    }
  } else {
    log.WriteLog("No adaption Done", 1);
  }
  return octaves;
}

bool AdaptRange(ElementList& elements, OctaveRange range, Log& log) {
  const std::optional<int> octaves = MoveInto(elements, range, log);
  if (!octaves) return false;
  if (*octaves == 0) return true;
  for (Element& element : elements) element = OctavesUp(element, *octaves);
  return true;
}

std::optional<size_t> FirstBeyond(const ElementList& elements, OctaveRange range) {
  Extremes used = kScanStart;
  for (size_t i = 0; i < elements.size(); ++i) {
    Widen(used, elements[i]);
    if (!CanMoveInside(used, range)) return i;
  }
  return std::nullopt;
}

std::string RangeRefusal(const ElementList& elements, OctaveRange range, std::string_view phone) {
  if (elements.empty()) return "the melody has no elements";
  using Limits = std::numeric_limits<int>;
  const auto [min, max] = OctavesIn(elements, {.min = Limits::max(), .max = Limits::min()});
  const std::string octaves = std::to_string(min) + " to " + std::to_string(max);
  const int span = range.high - range.low;
  // Because of where the scan starts, it refuses some melodies that lie far outside as well.
  if (max - min <= span)
    return "the melody's octaves " + octaves + " are too far from those of " + std::string(phone);
  return "the melody spans octaves " + octaves + ", which is more than the " + std::to_string(span + 1) +
         " octaves of " + std::string(phone);
}

}  // namespace trillomat
