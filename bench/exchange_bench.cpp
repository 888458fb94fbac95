// Importing pasted text and exporting for each phone.
#include "bench/workload.h"
#include "exchange/export_targets.h"
#include "exchange/import_text.h"
#include "formats/format_table.h"

namespace trillomat {
namespace {

using Converter = bool (*)(std::string_view source, Workspace& ws);

void Import(benchmark::State& state, Converter convert, FormatMode mode) {
  SilentWorkspace bench;
  bench.ws.ExportMelody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  const std::string text = FormatOf(mode).WriteText(bench.ws);
  for (auto _ : state) {
    if (!convert(text, bench.ws)) state.SkipWithError("the text was refused");
  }
  CountWork(state, text.size());
}

BENCHMARK_CAPTURE(Import, Rtttl, Convert_RTTTL, FormatMode::Rtttl)->Apply(OverSizes);
BENCHMARK_CAPTURE(Import, EMelody, bConvert_EMelody, FormatMode::EMelody)->Apply(OverSizes);
BENCHMARK_CAPTURE(Import, Melody, bConvert_Melody, FormatMode::Melody)->Apply(OverSizes);

// The octaves of the Melody mode are those that every phone has.
void Export(benchmark::State& state, Phone phone) {
  SilentWorkspace bench;
  bench.ws.ExportMelody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(FormatMode::Melody));
  size_t bytes = 0;
  for (auto _ : state) bytes = ExportText(phone, bench.ws).value().size();
  CountWork(state, bytes);
}

BENCHMARK_CAPTURE(Export, Rtttl, Phone::Rtttl)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, Nokia, Phone::Nokia)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, T68i, Phone::T68i)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, T39, Phone::T39)->Apply(OverSizes);
BENCHMARK_CAPTURE(Export, R320, Phone::R320)->Apply(OverSizes);

}  // namespace
}  // namespace trillomat
