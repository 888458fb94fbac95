#include "platform/pump_sleep.h"

#include <chrono>
#include <thread>

namespace trillomat {

bool SleepPump::WaitForEvents(double milliseconds) {
  std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
  return true;
}

}  // namespace trillomat
