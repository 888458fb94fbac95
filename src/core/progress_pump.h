// Tells how far a loop has come that lets events run once for each element.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "core/event_pump.h"

namespace trillomat {

class ProgressPump : public EventPump {
 public:
  /// Elements between two reports: a melody of usual length is done before the first.
  static constexpr size_t kStep = 20'000;

  /// `report` is told the number of elements that are done.
  ProgressPump(EventPump& pump, std::function<void(size_t)> report)
      : pump_(pump), report_(std::move(report)) {}

  bool PumpEvents() override {
    if (++done_ % kStep == 0) report_(done_);
    return pump_.PumpEvents();
  }
  bool WaitForEvents(double milliseconds) override { return pump_.WaitForEvents(milliseconds); }
  void TimeHasPassed() override { pump_.TimeHasPassed(); }

 private:
  EventPump& pump_;
  std::function<void(size_t)> report_;
  size_t done_ = 0;
};

}  // namespace trillomat
