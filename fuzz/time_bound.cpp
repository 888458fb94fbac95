#include "fuzz/time_bound.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>

namespace trillomat {
namespace {

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double SecondsOf(const FuzzBody& body, std::string_view input) {
  const double start = ProcessorSeconds();
  body.run(input);
  return ProcessorSeconds() - start;
}

uint32_t Hash(std::string_view bytes) {
  uint32_t hash = 2166136261U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
  return hash;
}

}  // namespace

void RunInTime(const FuzzBody& body, std::string_view input) {
  constexpr double kStart = 0.5;
  constexpr int kRepetitions = 4;  // a starved machine is slow now and then, a slow program always is
  const double bound = kStart + static_cast<double>(input.size()) * body.microsecondsAByte * 1e-6;
  double least = SecondsOf(body, input);
  for (int i = 0; least > bound && i < kRepetitions; ++i) least = std::min(least, SecondsOf(body, input));
  if (least <= bound) return;
  std::fprintf(stderr, "%zu bytes took %.2f s, the bound is %.2f s\n", input.size(), least, bound);
  throw std::logic_error("the time is bounded by the size");
}

std::string Lengthened(std::string_view input, size_t size) {
  if (input.empty()) return {};
  const uint32_t hash = Hash(input);
  const size_t begin = hash / 7 % input.size();
  const size_t length = 1 + hash / 7919 % std::min<size_t>(input.size() - begin, 64);
  std::string longer(input.substr(0, begin));
  while (longer.size() < size) longer += input.substr(begin, length);
  return longer += input.substr(begin + length);
}

bool IsToBeLengthened(std::string_view input) { return Hash(input) % 512 == 0; }

}  // namespace trillomat
