#include "exchange/range_adaptation.h"

#include <algorithm>
#include <limits>

namespace trillomat {
namespace {

constexpr int kLowestValid = 0;
constexpr int kHighestValid = 8;

struct Extremes {
  int min;
  int max;
};

// Widens `start` to the octaves in use.
Extremes OctavesIn(std::span<const MelodyNote> notes, Extremes start) {
  for (const MelodyNote& note : notes) {
    if (note.Octave == kNoOctave) continue;
    start.min = std::min<int>(start.min, note.Octave);
    start.max = std::max<int>(start.max, note.Octave);
  }
  return start;
}

int16_t Saturated(int value) {
  using Limits = std::numeric_limits<int16_t>;
  return static_cast<int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

void MoveBy(int octaves, MelodyList& notes, Log& log) {
  for (MelodyNote& note : notes) {
    if (note.Octave == kNoOctave) continue;
    const int moved = note.Octave + octaves;
    note.Octave = Saturated(moved);
    if (moved < kLowestValid || moved > kHighestValid) {
      log.WriteLog("Crical Error when adapting TTL tones", 1);
    }
  }
}

// The algorithm of both adaptations. `recordedShift` is written on an upward move alone.
bool Adapt(OctaveRange range, MelodyList& notes, int16_t& recordedShift, Log& log) {
  // The scan starts inside out, so a melody without octaves is never outside a range.
  const auto [min, max] = OctavesIn(notes, {.min = 10, .max = 0});
  if (max <= range.high && min >= range.low) return true;
  if (max - min > range.high - range.low) return false;
  if (min < range.low) {
    recordedShift = Saturated(range.low - min);
    MoveBy(range.low - min, notes, log);
  } else if (max > range.high) {
    MoveBy(range.high - max, notes, log);
  } else {
    log.WriteLog("No adaption Done", 1);
  }
  return true;
}

}  // namespace

bool AdaptExportRange(int16_t low, int16_t high, Workspace& ws) {
  if (ws.ExportMelody.empty()) return false;
  ws.ExportOctaveShift = 0;
  return Adapt({low, high}, ws.ExportMelody, ws.ExportOctaveShift, ws.log);
}

void AdaptImportRange(int16_t low, int16_t high, Workspace& ws, int16_t& ImportOctaveShift, bool& ok) {
  ok = Adapt({low, high}, ws.ImportMelody, ImportOctaveShift, ws.log);
}

std::string RangeRefusal(std::span<const MelodyNote> notes, OctaveRange range, std::string_view phone) {
  if (notes.empty()) return "the melody has no elements";
  using Limits = std::numeric_limits<int>;
  const auto [min, max] = OctavesIn(notes, {.min = Limits::max(), .max = Limits::min()});
  const std::string octaves = std::to_string(min) + " to " + std::to_string(max);
  const int span = range.high - range.low;
  // The inside-out start of the scan refuses some melodies that lie far outside as well.
  if (max - min <= span)
    return "the melody's octaves " + octaves + " are too far from those of " + std::string(phone);
  return "the melody spans octaves " + octaves + ", which is more than the " + std::to_string(span + 1) +
         " octaves of " + std::string(phone);
}

}  // namespace trillomat
