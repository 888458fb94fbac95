// The indicators of the phone picture: LED and backlight, and the spot that vibration moves it to.
#pragma once

#include <optional>
#include <string_view>

namespace trillomat {

struct PhoneLights {
  bool led = false;
  bool backlight = false;

  /// The phone picture that shows this state: 0 neither, 1 backlight, 2 LED, 3 both.
  int Picture() const { return (led ? 2 : 0) + (backlight ? 1 : 0); }
  /// Performs "ledon", "ledoff", "backon" or "backoff"; false for any other command.
  bool Perform(std::string_view command);
};

/// Where vibration puts the phone pictures, in the window's coordinate units.
struct VibrationSpot {
  int left = 0;
  int top = 0;
};

/// The spot of two random numbers from 0 up to 1, inside a square of 81 by 81.
constexpr VibrationSpot RandomVibrationSpot(double left, double top) {
  return {static_cast<int>(left * 81 + 200), static_cast<int>(top * 81 + 260)};
}

}  // namespace trillomat
