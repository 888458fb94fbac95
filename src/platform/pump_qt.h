// The event pump over Qt's event loop.
#pragma once

#include <QElapsedTimer>

#include "core/event_pump.h"

namespace trillomat {

/// To be used from the thread of the window. Loops that pump run inside event handlers, so they nest;
/// below a depth that no one reaches by hand the user's input waits until the inner loops have ended.
class QtPump : public EventPump {
 public:
  /// The event queue is reached at most once in this time, in milliseconds.
  static constexpr int kPumpInterval = 4;
  /// Loops that may run inside each other before input has to wait.
  static constexpr int kMaxDepth = 24;

  QtPump() { lastPump_.start(); }

  /// The window was closed: from now on every loop is told to leave.
  void End() { ending_ = true; }

  bool PumpEvents() override;
  bool WaitForEvents(double milliseconds) override;

 private:
  void Process(bool wait);

  QElapsedTimer lastPump_;
  int depth_ = 0;
  bool ending_ = false;
};

}  // namespace trillomat
