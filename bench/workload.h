// What every benchmark has: random melodies, and the sizes to run over.
#pragma once

#include <benchmark/benchmark.h>

#include "bench/random_melody.h"
#include "core/silent_services.h"

namespace trillomat {

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
