#include "playback/phone_lights.h"

namespace trillomat {

bool PhoneLights::Perform(std::string_view command) {
  const bool on = command.ends_with("on");
  if (command == "ledon" || command == "ledoff") {
    led = on;
    return true;
  }
  if (command == "backon" || command == "backoff") {
    backlight = on;
    return true;
  }
  return false;
}

}  // namespace trillomat
