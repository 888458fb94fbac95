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

  /// Local time of day in seconds with fractions, 0 at midnight. Goes on steadily, even when somebody sets
  /// the system's clock forward or back.
  virtual double SecondsSinceMidnight() const = 0;
  /// Today's date in the system's short format, for the name of a file: UTF-8, in the locale's own digits.
  virtual std::string DateText() const = 0;
  /// The time of day in the system's format, for a text: Windows-1252.
  virtual std::string TimeText() const = 0;
};

}  // namespace trillomat
