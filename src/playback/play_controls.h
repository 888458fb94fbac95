// The six play buttons, the further commands of the "Play" menu, the play loop, and the one answer to whether
// a melody plays.
//
//              Play               Pause
//    Stopped ----------> Playing <------> Paused
//       ^                   |    Play        |
//       +-- end, Stop, Start over, new song -+
#pragma once

#include "core/services.h"
#include "document/document.h"
#include "playback/player.h"

namespace trillomat {

/// When the melody sounds by itself: the user's three choices.
struct PlaySettings {
  bool autoPlay = true;       ///< a file that is opened is played
  bool playComposing = true;  ///< an element that is entered or changed is played
  bool playMoving = true;     ///< an element that the cursor moves over is played
};

/// The buttons `cmdControl(0)` to `cmdControl(5)`, by index. "Clear" stands among them and is the composer's.
enum class Control { Clear, StartOver, Pause, Stop, Play, ToEnd };

enum class PlayState { Stopped, Playing, Paused };

/// What the play controls need of whoever shows the song. Abstract so that tests and the command line can
/// play without a window.
class PlayHost {
 public:
  PlayHost() = default;
  PlayHost(const PlayHost&) = delete;
  PlayHost& operator=(const PlayHost&) = delete;
  virtual ~PlayHost() = default;

  /// PlayControls::State() is another now.
  virtual void PlayStateChanged() = 0;
  /// Rebuilds the text view around the cursor.
  virtual void RefreshMelodyView() = 0;
};

/// Shows nothing.
class NullPlayHost : public PlayHost {
 public:
  void PlayStateChanged() override {}
  void RefreshMelodyView() override {}
};

class PlayControls {
 public:
  PlayControls(Document& document, Player& player, const PlaySettings& settings, PlayHost& host,
               const Services& services)
      : document_(document), player_(player), settings_(settings), host_(host), services_(services) {}

  /// Presses a button. Play returns when the melody has ended, and at once when it plays already. Clear does
  /// nothing here, and no button does anything on an empty melody. Stop, Start over and Pause take effect
  /// between elements. A Pause while nothing plays is taken back by the next Play, which does nothing else
  /// then.
  void Press(Control control);

  /// As Play, but from the element at the cursor on, or from the first one when the cursor is before it.
  void PlayFromCursor();
  /// As Play, but only what is selected; nothing where nothing is. Repeats do not go back beyond its
  /// beginning.
  void PlaySelection();
  /// With the loop on, what plays begins anew at its end, until it is stopped.
  void SetLoop(bool loop) { loop_ = loop; }
  bool Loops() const { return loop_; }

  /// To be called when another song has taken the place of this one. Ends the play loop that runs, if any.
  /// With AutoPlay on that loop then plays the new song from its start; a Play that the caller presses on top
  /// of that is ignored.
  void SongReplaced();

  PlayState State() const {
    if (!playing_) return PlayState::Stopped;
    return pause_ ? PlayState::Paused : PlayState::Playing;
  }

 private:
  enum class Ending { Done, Stopped, ProgramEnds };
  class Playing;

  void StartOver();
  void SetPause(bool pause);
  void Stop();
  void Play(ElementRange range);
  void ToEnd();
  ElementRange Whole() const { return {0, document_.LastIndex() + 1}; }
  Ending PlayRangeThenNewSongs(ElementRange range);
  Ending PlayLoop(ElementRange range);
  int32_t BeginRound(ElementRange range);
  bool WaitWhilePaused();
  int32_t PlayAt(int32_t position);

  Document& document_;
  Player& player_;
  const PlaySettings& settings_;
  PlayHost& host_;
  Services services_;
  bool playing_ = false;
  bool stop_ = false;
  bool pause_ = false;
  bool loop_ = false;
  bool restart_ = false;  ///< play the song that replaced this one
};

}  // namespace trillomat
