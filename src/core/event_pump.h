// The seam to the window system's event queue. Long loops let pending events run through it, so the
// window stays alive; a program without a window only sleeps. Abstract so that tests can script it.
#pragma once

namespace trillomat {

class EventPump {
 public:
  EventPump() = default;
  EventPump(const EventPump&) = delete;
  EventPump& operator=(const EventPump&) = delete;
  virtual ~EventPump() = default;

  /// Lets pending events run; may be called once per element of a loop of a million. False once the
  /// program is ending: every loop then leaves as soon as it can.
  virtual bool PumpEvents() = 0;

  /// Sleeps until an event arrives or `milliseconds` (more than 0) have passed, and lets the pending
  /// events run. The result is that of PumpEvents.
  virtual bool WaitForEvents(double milliseconds) = 0;

  /// To be told after a call that took long and let no events run: the next PumpEvents lets them run, however
  /// often it was called lately.
  virtual void TimeHasPassed() {}
};

/// The pump of a piece of work that the user can cancel: after Stop that work ends as it would at the
/// program's end.
class StoppablePump : public EventPump {
 public:
  explicit StoppablePump(EventPump& pump) : pump_(pump) {}

  void Stop() { stopped_ = true; }

  bool PumpEvents() override { return pump_.PumpEvents() && !stopped_; }
  bool WaitForEvents(double milliseconds) override { return pump_.WaitForEvents(milliseconds) && !stopped_; }
  void TimeHasPassed() override { pump_.TimeHasPassed(); }

 private:
  EventPump& pump_;
  bool stopped_ = false;
};

}  // namespace trillomat
