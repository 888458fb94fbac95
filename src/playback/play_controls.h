// The six play buttons and the play loop.
#pragma once

#include <cstdint>

#include "core/workspace.h"
#include "playback/play_host.h"
#include "playback/play_settings.h"
#include "playback/player.h"

namespace trillomat {

/// The buttons `cmdControl(0)` to `cmdControl(5)`, by index.
enum class Control { Clear, StartOver, Pause, Stop, Play, ToEnd };

class PlayControls {
 public:
  PlayControls(Workspace& ws, Player& player, const PlaySettings& settings, PlayHost& host)
      : ws_(ws), player_(player), settings_(settings), host_(host) {}

  /// Presses a button, `index` from 0 to 5; any other index does nothing. Play returns when the melody
  /// has ended, and returns at once when it plays already. All buttons but Clear do nothing on an empty
  /// melody. Stop, Start over and Pause take effect between elements.
  void cmdControl_Click(int index);

  /// To be called when another melody has taken the place of this one. Ends the play loop that runs,
  /// if any; with AutoPlay on that same Play button then plays the new melody from its start, so the
  /// caller may press Play all the same: it is ignored while one plays.
  void MelodyReplaced();

  bool IsPlaying() const { return playing_; }
  bool IsPaused() const { return pause_; }

 private:
  enum class Ending { Done, Stopped, ProgramEnds };

  void Clear();
  void StartOver();
  void Stop();
  void Play();
  void ToEnd();
  Ending PlayLoop();
  bool WaitWhilePaused();
  int32_t PlayAt(int32_t position);

  Workspace& ws_;
  Player& player_;
  const PlaySettings& settings_;
  PlayHost& host_;
  bool playing_ = false;  ///< the caption reads "Playing"
  bool stop_ = false;
  bool pause_ = false;
  bool restart_ = false;  ///< play the melody that replaced this one
};

}  // namespace trillomat
