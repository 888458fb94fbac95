// The system clock, in local time and in the formats of the user's locale.
#pragma once

#include <chrono>
#include <locale>
#include <string>

#include "core/clock.h"

namespace trillomat {

class StdClock : public Clock {
 public:
  /// Now, in the user's locale.
  StdClock();
  /// Begins at the time of day `start`; texts are in `locale`.
  StdClock(const std::locale& locale, std::chrono::system_clock::time_point start);

  /// Goes on steadily from the start, whatever happens to the system's time meanwhile.
  double SecondsSinceMidnight() const override;
  std::string DateText() const override;
  std::string TimeText() const override;

 protected:
  /// `utf8`, a time of day, in Windows-1252; where that lacks a character of it, the time of day as
  /// "HH:MM:SS".
  static std::string TimeInCodePage(const std::string& utf8);

 private:
  std::locale locale_;
  double start_;  ///< seconds since midnight
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace trillomat
