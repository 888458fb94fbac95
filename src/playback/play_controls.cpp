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
    controls_.host_.PlayStateChanged();
  }

 private:
  PlayControls& controls_;
};

void PlayControls::Press(Control control) {
  if (control == Control::Clear) return Clear();
  if (document_.IsEmpty()) return;
  switch (control) {
    case Control::Clear: return;
    case Control::StartOver: return StartOver();
    case Control::Pause: return SetPause(!pause_);
    case Control::Stop: return Stop();
    case Control::Play: return Play();
    case Control::ToEnd: return ToEnd();
  }
}

void PlayControls::SongReplaced() {
  stop_ = true;
  restart_ = settings_.autoPlay;
  SetPause(false);
}

void PlayControls::Clear() {
  if (playing_) return;
  document_.Apply({.removed = document_.Elements().size(), .cursor = -1});
  host_.RefreshMelodyView();
  player_.Rest();
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

void PlayControls::Play() {
  if (pause_) return SetPause(false);
  if (playing_) return;
  const LogOperation operation(services_.log);
  if (PlayRounds() == Ending::Done) services_.log.WriteLog("Done Playing", 1);
}

PlayControls::Ending PlayControls::PlayRounds() {
  const Playing playing(*this);
  host_.PlayStateChanged();
  Ending ending = Ending::Done;
  do {
    restart_ = false;
    ending = PlayLoop();
  } while (restart_ && ending == Ending::Stopped);
  return ending;
}

PlayControls::Ending PlayControls::PlayLoop() {
  stop_ = false;
  SetPause(false);
  const int32_t last = document_.LastIndex();
  // Events run in here, and another song may have taken the place of this one.
  for (int32_t i = 0; i <= std::min(last, document_.LastIndex()); ++i) {
    i -= PlayAt(i);
    if (!services_.pump.PumpEvents() || !WaitWhilePaused()) return Ending::ProgramEnds;
    if (stop_) return Ending::Stopped;
  }
  return Ending::Done;
}

// Moves the cursor onto the element and plays it.
int32_t PlayControls::PlayAt(int32_t position) {
  document_.Apply({.cursor = position});
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
