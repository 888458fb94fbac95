// Importing pasted text and exporting for each phone.
#include "bench/workload.h"
#include "exchange/export.h"
#include "exchange/import.h"

namespace trillomat {
namespace {

Song RandomSong(const benchmark::State& state, FormatMode mode) {
  return {.elements = RandomElements(static_cast<size_t>(state.range(0)), LimitsOf(mode)), .info = {}};
}

void Import(benchmark::State& state, PastedFormat format, FormatMode mode) {
  SilentServices bench;
  const std::string text = *Write(RandomSong(state, mode), mode, bench.services);
  for (auto _ : state) {
    if (!Import(format, text, false, {}, bench.services).read) state.SkipWithError("the text was refused");
  }
  CountWork(state, text.size());
}

BENCHMARK_CAPTURE(Import, Rtttl, PastedFormat::Rtttl, FormatMode::Rtttl)->Apply(OverSizes);
BENCHMARK_CAPTURE(Import, EMelody, PastedFormat::EMelody, FormatMode::EMelody)->Apply(OverSizes);
BENCHMARK_CAPTURE(Import, Melody, PastedFormat::Melody, FormatMode::Melody)->Apply(OverSizes);

// The octaves of the Melody mode are those that every phone has.
void Export(benchmark::State& state, Phone phone) {
  SilentServices bench;
  const Song song = RandomSong(state, FormatMode::Melody);
  size_t bytes = 0;
  for (auto _ : state) bytes = Export(phone, song, bench.services)->size();
  CountWork(state, bytes);
}

BENCHMARK_CAPTURE(Export, Rtttl, Phone::Rtttl)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, Nokia, Phone::Nokia)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, T68i, Phone::T68i)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, T39, Phone::T39)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, R320, Phone::R320)->Apply(OverSizes);

}  // namespace
}  // namespace trillomat
