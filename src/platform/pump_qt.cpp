#include "platform/pump_qt.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

namespace trillomat {

using namespace std::chrono_literals;

// The toolkit ends the program with its last window, but takes that back when another window is shown: a box
// that an interrupted operation opens would leave the program running behind it, without a window once it is
// closed.
void QtPump::End() {
  ending_ = true;
  if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit();
}

// Looks at the clock, and lets events run if it is time for that.
bool QtPump::Look() {
  constexpr int kMostDoublings = 12;
  constexpr int kMostCalls = 128;
  constexpr auto kShortTime = 100us;  // for kMostCalls
  const auto now = SteadyClock::now();
  calls_ = untilLook_ = (now - lastLook_) * kMostCalls < kShortTime * calls_ ? kMostCalls : 1;
  lastLook_ = now;
  const std::chrono::milliseconds interval(kPumpInterval << std::min(depth_, kMostDoublings));
  if (!ending_ && now - lastPump_ >= interval) {
    Process([] { QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestPump); });
  }
  return !ending_;
}

bool QtPump::WaitForEvents(double milliseconds) {
  if (ending_) return false;
  const double whole = std::floor(milliseconds);
  if (whole < 1) {
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
    return PumpEvents();
  }
  // The timer ends the wait, unless another event does so before.
  QTimer alarm;
  alarm.setTimerType(Qt::PreciseTimer);
  alarm.setSingleShot(true);
  alarm.start(std::chrono::milliseconds(std::llround(whole)));
  Process([] { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); });
  return !ending_;
}

void QtPump::Process(void (*process)()) {
  ++depth_;
  process();
  --depth_;
  lastPump_ = lastLook_ = SteadyClock::now();
  calls_ = untilLook_ = 1;  // another loop may have run meanwhile, whose speed tells nothing about this one
}

}  // namespace trillomat
