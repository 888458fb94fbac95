// What the player shows while it plays: the frequency, and the phone with its lights and vibration.
#pragma once

#include <string_view>

namespace trillomat {

/// The timers of the main window.
inline constexpr int kVibrationTimer = 0;
inline constexpr int kFileClickTimer = 1;

/// The interval of a timer in milliseconds.
constexpr int TimerInterval(int timer) { return timer == kVibrationTimer ? 100 : 200; }

class PlayerView {
 public:
  PlayerView() = default;
  PlayerView(const PlayerView&) = delete;
  PlayerView& operator=(const PlayerView&) = delete;
  virtual ~PlayerView() = default;

  /// Puts the frequency of the tone, decimal text in Hz, into the frequency label.
  virtual void ShowFrequency(std::string_view text) = 0;
  /// Shows one of the four phone pictures and hides the others: 0 no light, 1 backlight, 2 LED, 3 both.
  virtual void ShowPicture(int picture) = 0;
  /// Starts and stops a timer of the main window; timer 0 animates the vibration.
  virtual void EnableTimer(int timer) = 0;
  virtual void DisableTimer(int timer) = 0;
};

/// Shows nothing.
class NullPlayerView : public PlayerView {
 public:
  void ShowFrequency(std::string_view /*text*/) override {}
  void ShowPicture(int /*picture*/) override {}
  void EnableTimer(int /*timer*/) override {}
  void DisableTimer(int /*timer*/) override {}
};

}  // namespace trillomat
