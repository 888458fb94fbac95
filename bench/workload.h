// What every benchmark works on: random melodies, and the sizes to run over.
#pragma once

#include <benchmark/benchmark.h>

#include <random>

#include "core/element.h"
#include "core/format_mode.h"
#include "core/silent_services.h"
#include "core/tone.h"

namespace trillomat {

/// `count` random tones within what `limits` can hold.
inline ElementList RandomElements(size_t count, const ModeLimits& limits) {
  std::mt19937 random(count);
  std::uniform_int_distribution<size_t> tone(0, kTones.size() - 1);
  std::uniform_int_distribution<int> octave(limits.lowestOctave, limits.highestOctave);
  std::uniform_int_distribution<int> duration(limits.firstDuration, limits.lastDuration);
  ElementList elements(count);
  for (Element& element : elements) {
    element.octave = static_cast<int16_t>(octave(random));
    element.SetNote(kTones.at(tone(random)));
    element.duration = kDurations.at(static_cast<size_t>(duration(random)));
    element.extra = 1.0F;
  }
  return elements;
}

/// From 10^3 to 10^6 elements, with the growth fitted to a line: a large RMS means that it is none.
inline void OverSizes(benchmark::internal::Benchmark* bench) {
  bench->RangeMultiplier(10)->Range(1000, 1000000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
}

/// Counts what one iteration worked on: `bytes` of text of state.range(0) elements.
inline void CountWork(benchmark::State& state, size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(bytes) * state.iterations());
  state.SetComplexityN(state.range(0));
}

}  // namespace trillomat
