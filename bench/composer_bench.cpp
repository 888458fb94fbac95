// How long it takes until an entered tone is in the text view, for melodies of different lengths: at the end,
// where no elements have to be moved, and at the front, where all have. The tone is erased again.
#include <benchmark/benchmark.h>

#include "bench/idle_parts.h"

namespace trillomat {
namespace {

const Element kTone = Tone("#c", 4, 0.5F, 1.0F);

Song SongOf(int64_t elements) { return {ElementList(static_cast<size_t>(elements), kTone), {}}; }

void EnterTone(benchmark::State& state) {
  IdleComposer idle(SongOf(state.range(1)), static_cast<FormatMode>(state.range(0)));
  idle.document.Apply({.cursor = idle.document.LastIndex()});
  for (auto _ : state) {
    idle.composer.EnterTone(0);
    idle.composer.EraseLeft();
  }
}

void InsertAtTheFront(benchmark::State& state) {
  Document document(SongOf(state.range(0)), FormatMode::IMelody);
  for (auto _ : state) {
    document.Apply(document.Apply({.inserted = {kTone}, .cursor = 0}));
  }
}

BENCHMARK(EnterTone)->ArgNames({"mode", "elements"})->ArgsProduct({{0, 1, 2, 3}, {100, 10000, 100000}});
BENCHMARK(InsertAtTheFront)->ArgName("elements")->Arg(100)->Arg(10000)->Arg(100000);

}  // namespace
}  // namespace trillomat
