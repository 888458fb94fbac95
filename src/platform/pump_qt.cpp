#include "platform/pump_qt.h"

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

namespace trillomat {

bool QtPump::PumpEvents() {
  constexpr int kMostDoublings = 12;
  const int interval = kPumpInterval << std::min(depth_, kMostDoublings);
  if (!ending_ && lastPump_.elapsed() >= interval) Process(QEventLoop::AllEvents);
  return !ending_;
}

bool QtPump::WaitForEvents(double milliseconds) {
  if (ending_) return false;
  const double whole = std::floor(milliseconds);
  if (whole < 1) {
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
    return PumpEvents();
  }
  // The timer ends the wait; it is of no account when another event did so before.
  QTimer alarm;
  alarm.setTimerType(Qt::PreciseTimer);
  alarm.setSingleShot(true);
  alarm.start(std::chrono::milliseconds(std::llround(whole)));
  Process(QEventLoop::WaitForMoreEvents);
  return !ending_;
}

void QtPump::Process(QEventLoop::ProcessEventsFlags flags) {
  ++depth_;
  QCoreApplication::processEvents(flags);
  --depth_;
  lastPump_.restart();
}

}  // namespace trillomat
