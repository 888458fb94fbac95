// The clock of Windows: date and time as the user has set them in the system's regional formats.
#pragma once

#include <string>

#include "platform/clock_std.h"

namespace trillomat {

class Win32Clock : public StdClock {
 public:
  using StdClock::StdClock;

  std::string DateText() const override;
  std::string TimeText() const override;
};

}  // namespace trillomat
