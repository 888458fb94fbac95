// The seam to the system clock. Abstract so that tests can move time by hand.
#pragma once

#include <string>

namespace trillomat {

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  /// Local time of day in seconds with fractions, 0 at midnight.
  virtual double SecondsSinceMidnight() const = 0;
  /// Today's date and the time of day in the system's short formats (Windows-1252).
  virtual std::string DateText() const = 0;
  virtual std::string TimeText() const = 0;
};

}  // namespace trillomat
