#include "platform/pump_sleep.h"

#include <chrono>
#include <thread>

namespace trillomat {

using std::chrono::steady_clock;

void SleepUntil(steady_clock::time_point end) {
  while (steady_clock::now() < end) std::this_thread::sleep_until(end);
}

bool SleepPump::WaitForEvents(double milliseconds) {
  const std::chrono::duration<double, std::milli> length(milliseconds);
  SleepUntil(steady_clock::now() + std::chrono::ceil<steady_clock::duration>(length));
  return true;
}

}  // namespace trillomat
