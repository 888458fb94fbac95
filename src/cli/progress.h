// How far a command is, counted by the events that its loops let run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "cli/progress_line.h"
#include "core/event_pump.h"

namespace trillomat {

/// Stands before the pump of the work.
class Progress : public EventPump {
 public:
  Progress(EventPump& pump, ProgressLine& line) : pump_(pump), line_(line) {}

  /// The work on one of many files begins.
  void BeginFile(const std::filesystem::path& file, size_t number, size_t of);
  /// A part of the work begins, like "reading". Where it is known how often events will run, `steps` is that.
  /// The first `skipped` times do not count.
  void Begin(std::string_view part, const std::filesystem::path& file, size_t steps = 0, size_t skipped = 0);
  /// A part of the work on one of many files begins that lets no events run, like "tidying".
  void Tell(std::string_view part, std::string_view object = {});
  /// Says "element 12 of 300" of the part.
  void SayElement(size_t number, size_t of);

  /// How often events have run in this part.
  size_t Done() const { return done_; }

  bool PumpEvents() override {
    // Reading the clock takes longer than many a step.
    constexpr size_t kSteps = 256;
    if (++done_ % kSteps == 0) Show();
    return pump_.PumpEvents();
  }
  bool WaitForEvents(double milliseconds) override { return pump_.WaitForEvents(milliseconds); }
  void TimeHasPassed() override { pump_.TimeHasPassed(); }

 private:
  void Show();
  std::string Text() const;
  std::string Amount() const;

  EventPump& pump_;
  ProgressLine& line_;
  std::string file_;  ///< the one of many, with its number
  std::string part_;
  size_t steps_ = 0;
  size_t skipped_ = 0;
  size_t done_ = 0;
};

}  // namespace trillomat
