// What the play controls need from the main window. Abstract so that tests and the command line can
// play without one.
#pragma once

#include <cstdint>
#include <string_view>

namespace trillomat {

class PlayHost {
 public:
  PlayHost() = default;
  PlayHost(const PlayHost&) = delete;
  PlayHost& operator=(const PlayHost&) = delete;
  virtual ~PlayHost() = default;

  /// Unlocks and locks the editing, file and play controls; they are locked while a melody plays.
  virtual void EnableComposer(bool enable) = 0;
  /// Sets the caption of the Play button: "Playing" or "Play".
  virtual void SetPlayCaption(std::string_view caption) = 0;
  /// Rebuilds the text view around the cursor.
  virtual void RefreshMelodyView() = 0;
  /// Empties both halves of the text view.
  virtual void ClearMelodyView() = 0;
  /// Milliseconds of one beat at the present tempo; a tempo of 0 is replaced first.
  virtual int32_t lBeatDuration() = 0;
};

/// A host without a window, with a beat that is given.
class NullPlayHost : public PlayHost {
 public:
  explicit NullPlayHost(int32_t beat) : beat_(beat) {}
  void EnableComposer(bool /*enable*/) override {}
  void SetPlayCaption(std::string_view /*caption*/) override {}
  void RefreshMelodyView() override {}
  void ClearMelodyView() override {}
  int32_t lBeatDuration() override { return beat_; }

 private:
  int32_t beat_;
};

}  // namespace trillomat
