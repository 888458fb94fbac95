// The event pump over Qt's event loop.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>

#include "core/event_pump.h"

namespace trillomat {

/// To be used from the thread of the window. Loops that pump run inside event handlers, so they nest: a
/// loop inside a handler inside a loop. The deeper a loop runs, the less often it lets events run, so that
/// a key that is held down cannot pile up handlers, and yet every loop can be stopped.
class QtPump : public EventPump {
 public:
  /// PumpEvents reaches the event queue at most once in this time, in milliseconds; each nested level
  /// doubles it. Waiting lets events run at any depth.
  static constexpr int kPumpInterval = 4;

  QtPump() { lastPump_.start(); }

  /// The window was closed: from now on every loop is told to leave.
  void End() { ending_ = true; }

  bool PumpEvents() override;
  bool WaitForEvents(double milliseconds) override;

 private:
  void Process(QEventLoop::ProcessEventsFlags flags);

  QElapsedTimer lastPump_;
  int depth_ = 0;
  bool ending_ = false;
};

}  // namespace trillomat
