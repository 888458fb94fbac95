#include "playback/play_controls.h"

#include <algorithm>

namespace trillomat {

/// The controls play for as long as this lives, however that ends.
class PlayControls::Playing {
 public:
  explicit Playing(PlayControls& controls) : controls_(controls) { controls_.playing_ = true; }
  Playing(const Playing&) = delete;
  Playing& operator=(const Playing&) = delete;
  ~Playing() {
    controls_.playing_ = false;
    controls_.pause_ = false;
    controls_.player_.repeat.PlayFrom(0);
    controls_.host_.PlayStateChanged();
  }

 private:
  PlayControls& controls_;
};

void PlayControls::Press(Control control) {
  if (document_.IsEmpty()) return;
  switch (control) {
    case Control::Clear: return;
    case Control::StartOver: return StartOver();
    case Control::Pause: return SetPause(!pause_);
    case Control::Stop: return Stop();
    case Control::Play: return Play(Whole());
    case Control::ToEnd: return ToEnd();
  }
}

void PlayControls::SongReplaced() {
  stop_ = true;
  restart_ = settings_.autoPlay;
  SetPause(false);
}

void PlayControls::StartOver() {
  Stop();
  document_.Apply({.cursor = -1});
  host_.RefreshMelodyView();
}

void PlayControls::SetPause(bool pause) {
  const PlayState before = State();
  pause_ = pause;
  if (State() != before) host_.PlayStateChanged();
}

void PlayControls::Stop() {
  stop_ = true;
  restart_ = false;
  SetPause(false);
}

void PlayControls::ToEnd() {
  document_.Apply({.cursor = document_.LastIndex()});
  host_.RefreshMelodyView();
}

void PlayControls::PlayFromCursor() { Play({std::max(document_.Cursor(), 0), Whole().end}); }

void PlayControls::PlaySelection() { Play(document_.Selection()); }

void PlayControls::Play(ElementRange range) {
  if (range.IsEmpty()) return;
  if (pause_) return SetPause(false);
  if (playing_) return;
  const LogOperation operation(services_.log);
  if (PlayRangeThenNewSongs(range) == Ending::Done) services_.log.WriteLog("Done Playing", 1);
}

PlayControls::Ending PlayControls::PlayRangeThenNewSongs(ElementRange range) {
  const Playing playing(*this);
  host_.PlayStateChanged();
  restart_ = false;
  Ending ending = PlayLoop(range);
  while (restart_ && ending == Ending::Stopped) {
    restart_ = false;
    ending = PlayLoop(Whole());
  }
  return ending;
}

PlayControls::Ending PlayControls::PlayLoop(ElementRange range) {
  stop_ = false;
  SetPause(false);
  player_.repeat.PlayFrom(range.begin);
  int32_t next = range.begin;
  // Events run in here, and another song may have taken the place of this one.
  while (next < std::min(range.end, Whole().end)) {
    next += 1 - PlayAt(next);
    if (loop_ && next == range.end) next = BeginRound(range);
    if (!services_.pump.PumpEvents() || !WaitWhilePaused()) return Ending::ProgramEnds;
    if (stop_) return Ending::Stopped;
  }
  return Ending::Done;
}

// Returns the index of the element to go on with.
int32_t PlayControls::BeginRound(ElementRange range) {
  player_.BeginRound();
  player_.repeat.PlayFrom(range.begin);
  return range.begin;
}

// Moves the cursor onto the element and plays it; returns what Player::PlayElement does. What is selected
// stays so.
int32_t PlayControls::PlayAt(int32_t position) {
  document_.Apply({.cursor = position, .selection = document_.Selection()});
  host_.RefreshMelodyView();
  return player_.PlayElement(document_.At(position), position);
}

// Sleeps while the pause flag is set; false when the program is ending.
bool PlayControls::WaitWhilePaused() {
  constexpr double kLongSleep = 1000;  // milliseconds; a click ends it
  while (pause_ && !stop_ && !document_.IsEmpty()) {
    if (!services_.pump.WaitForEvents(kLongSleep)) return false;
  }
  return true;
}

}  // namespace trillomat
