// Decoding, encoding, reading and writing in each of the four formats.
#include "formats/formats.h"

#include "bench/workload.h"
#include "core/codec.h"

namespace trillomat {
namespace {

std::vector<std::string> TokensOf(const ElementList& elements, FormatMode mode, size_t& bytes) {
  SilentLog log;
  std::vector<std::string> tokens;
  bytes = 0;
  for (const Element& element : elements) {
    tokens.push_back(Encode(element, mode, {}, log).text);
    bytes += tokens.back().size();
  }
  return tokens;
}

void Decode(benchmark::State& state, FormatMode mode) {
  SilentLog log;
  size_t bytes = 0;
  const std::vector<std::string> tokens =
      TokensOf(RandomElements(static_cast<size_t>(state.range(0)), LimitsOf(mode)), mode, bytes);
  while (state.KeepRunning()) {
    for (const std::string& token : tokens) benchmark::DoNotOptimize(Decode(token, mode, {}, log));
  }
  CountWork(state, bytes);
}

void Encode(benchmark::State& state, FormatMode mode) {
  SilentLog log;
  const ElementList elements = RandomElements(static_cast<size_t>(state.range(0)), LimitsOf(mode));
  size_t bytes = 0;
  TokensOf(elements, mode, bytes);
  while (state.KeepRunning()) {
    for (const Element& element : elements) benchmark::DoNotOptimize(Encode(element, mode, {}, log));
  }
  CountWork(state, bytes);
}

Song RandomSong(const benchmark::State& state, FormatMode mode) {
  return {.elements = RandomElements(static_cast<size_t>(state.range(0)), LimitsOf(mode)), .info = {}};
}

void Read(benchmark::State& state, FormatMode mode) {
  SilentServices bench;
  const std::string text = *Write(RandomSong(state, mode), mode, bench.services);
  while (state.KeepRunning()) {
    if (!Read(text, mode, {}, bench.services)) state.SkipWithError("the text was refused");
  }
  CountWork(state, text.size());
}

void Write(benchmark::State& state, FormatMode mode) {
  SilentServices bench;
  const Song song = RandomSong(state, mode);
  size_t bytes = 0;
  while (state.KeepRunning()) bytes = Write(song, mode, bench.services)->size();
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
