// The system clock, in local time and in the formats of the user's locale.
#pragma once

#include <locale>
#include <string>

#include "core/clock.h"

namespace trillomat {

class StdClock : public Clock {
 public:
  StdClock();

  double SecondsSinceMidnight() const override;
  std::string DateText() const override;
  std::string TimeText() const override;

 private:
  std::string NowAs(const char* format) const;

  std::locale locale_;
};

}  // namespace trillomat
