// Decoding, encoding, reading and writing in each of the four formats.
#include "bench/workload.h"
#include "formats/format_table.h"

namespace trillomat {
namespace {

std::vector<std::string> Encoded(MelodyList& melody, FormatMode mode, const NoteCodec& codec, size_t& bytes) {
  std::vector<std::string> tokens;
  bytes = 0;
  for (MelodyNote& note : melody) {
    tokens.push_back(codec.EncodeNote(note, mode));
    bytes += tokens.back().size();
  }
  return tokens;
}

void Decode(benchmark::State& state, FormatMode mode) {
  SilentWorkspace bench;
  MelodyList melody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  size_t bytes = 0;
  const std::vector<std::string> tokens = Encoded(melody, mode, bench.ws.codec, bytes);
  while (state.KeepRunning()) {
    for (const std::string& token : tokens) benchmark::DoNotOptimize(bench.ws.codec.DecodeNote(token, mode));
  }
  CountWork(state, bytes);
}

void Encode(benchmark::State& state, FormatMode mode) {
  SilentWorkspace bench;
  MelodyList melody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  size_t bytes = 0;
  Encoded(melody, mode, bench.ws.codec, bytes);
  while (state.KeepRunning()) {
    for (MelodyNote& note : melody) benchmark::DoNotOptimize(bench.ws.codec.EncodeNote(note, mode));
  }
  CountWork(state, bytes);
}

void Read(benchmark::State& state, FormatMode mode) {
  SilentWorkspace bench;
  bench.ws.ExportMelody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  const std::string text = FormatOf(mode).WriteText(bench.ws);
  while (state.KeepRunning()) {
    if (!FormatOf(mode).ReadText(text, bench.ws)) state.SkipWithError("the text was refused");
  }
  CountWork(state, text.size());
}

void Write(benchmark::State& state, FormatMode mode) {
  SilentWorkspace bench;
  bench.ws.ExportMelody = RandomMelody(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  size_t bytes = 0;
  while (state.KeepRunning()) bytes = FormatOf(mode).WriteText(bench.ws).size();
  CountWork(state, bytes);
}

#define TRILLOMAT_FORMAT_BENCH(mode)                                   \
  BENCHMARK_CAPTURE(Decode, mode, FormatMode::mode)->Apply(OverSizes); \
  BENCHMARK_CAPTURE(Encode, mode, FormatMode::mode)->Apply(OverSizes); \
  BENCHMARK_CAPTURE(Read, mode, FormatMode::mode)->Apply(OverSizes);   \
  BENCHMARK_CAPTURE(Write, mode, FormatMode::mode)->Apply(OverSizes)
TRILLOMAT_FORMAT_BENCH(IMelody);
TRILLOMAT_FORMAT_BENCH(EMelody);
TRILLOMAT_FORMAT_BENCH(Rtttl);
TRILLOMAT_FORMAT_BENCH(Melody);

}  // namespace
}  // namespace trillomat
