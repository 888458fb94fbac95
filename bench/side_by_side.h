// Measures a work beside a yardstick of the same size, in turns and in processor time, so that neither a
// slower machine nor a busy one changes the result. Prints lines of: what, figure, what was measured.
//
// Under callgrind each work runs once and its instructions are counted instead.
#pragma once

#include <valgrind/callgrind.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

namespace trillomat {

using Work = std::function<void()>;

/// Takes results, so that the compiler cannot leave the work out.
inline volatile size_t measured = 0;

inline double ProcessorNanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

struct BestPasses {
  double work = std::numeric_limits<double>::infinity();  ///< nanoseconds
  double yardstick = work;
};

/// Runs both in turns until that has taken long enough, and keeps the best pass of each.
inline BestPasses Measure(const Work& work, const Work& yardstick) {
  constexpr int kFewest = 7;
  constexpr double kLongEnough = 4e8;
  const auto pass = [](const Work& timed, double& best) {
    const double start = ProcessorNanoseconds();
    timed();
    const double took = ProcessorNanoseconds() - start;
    best = std::min(best, took);
    return took;
  };
  BestPasses best;
  double total = 0;
  for (int i = 0; i < kFewest || total < kLongEnough; ++i)
    total += pass(yardstick, best.yardstick) + pass(work, best.work);
  return best;
}

/// One pass over the bytes through a table of 256 entries: the least that any reader does.
inline Work ScanOf(std::string_view bytes) {
  std::array<uint8_t, 256> table{};
  std::iota(table.rbegin(), table.rend(), uint8_t{0});
  return [bytes, table] {
    size_t sum = 0;
    for (const char byte : bytes) sum += table[static_cast<unsigned char>(byte)];
    measured = sum;
  };
}

inline bool IsCounting() { return RUNNING_ON_VALGRIND != 0; }

/// Has callgrind write the instructions of one pass into a file, under the name `what`.
inline void CountInstructions(const std::string& what, const Work& work) {
  CALLGRIND_ZERO_STATS;
  work();
  CALLGRIND_DUMP_STATS_AT(what.c_str());
}

inline void Print(std::string_view what, double figure, double nanoseconds) {
  std::printf("%.*s\t%.4f\t%.4g us\n", static_cast<int>(what.size()), what.data(), figure,
              nanoseconds / 1000);
  std::fflush(stdout);
}

/// Prints how many times as long as the yardstick the work takes.
inline void PrintRatio(const std::string& what, const Work& yardstick, const Work& work) {
  if (IsCounting()) return CountInstructions(what, work);
  const BestPasses best = Measure(work, yardstick);
  Print(what, best.work / best.yardstick, best.work);
}

/// Prints the time of one of the `repeats` that the work does. It is scaled to the machine that the goals
/// were set on, which scans a byte in a quarter of a nanosecond.
inline void PrintTime(const std::string& what, size_t repeats, const Work& work) {
  if (IsCounting()) return CountInstructions(what, work);
  constexpr double kScanOfByte = 0.25;
  const std::string bytes(1 << 16, 'x');
  const BestPasses best = Measure(work, ScanOf(bytes));
  const double one = best.work / static_cast<double>(repeats);
  const double scanOfByte = best.yardstick / static_cast<double>(bytes.size());
  Print(what, one / 1000 * kScanOfByte / scanOfByte, one);
}

}  // namespace trillomat
