// What the player shows while it plays: the frequency, the phone with its lights and vibration,
// and which element plays.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace trillomat {

/// The element that plays now.
struct NowPlaying {
  int32_t index = 0;             ///< in the song
  std::optional<int> tone = {};  ///< what sounds: 0 for c to 11 for b
};

/// Abstract so that the player runs and is tested without a window.
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
  /// Starts and ends the shaking of the phone pictures.
  virtual void Vibrate(bool on) = 0;
  /// The player begins to play this element; nothing: it has ended the one that it played. Must not let
  /// events run.
  virtual void ShowPlaying(const std::optional<NowPlaying>& now) = 0;
  /// Paints everything in the window that changed and is not painted yet, because a tone follows that lets no
  /// events run. Must not let events run itself.
  virtual void PaintNow() = 0;
};

/// Shows nothing.
class NullPlayerView : public PlayerView {
 public:
  void ShowFrequency(std::string_view /*text*/) override {}
  void ShowPicture(int /*picture*/) override {}
  void Vibrate(bool /*on*/) override {}
  void ShowPlaying(const std::optional<NowPlaying>& /*now*/) override {}
  void PaintNow() override {}
};

}  // namespace trillomat
