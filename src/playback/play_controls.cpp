#include "playback/play_controls.h"

#include <algorithm>

namespace trillomat {

void PlayControls::cmdControl_Click(int index) {
  const auto control = static_cast<Control>(index);
  if (control == Control::Clear) return Clear();
  if (ws_.melody.IsEmpty()) return;
  switch (control) {
    case Control::StartOver: return StartOver();
    case Control::Pause: pause_ = !pause_; return;
    case Control::Stop: return Stop();
    case Control::Play: return Play();
    case Control::ToEnd: return ToEnd();
    default: return;
  }
}

void PlayControls::MelodyReplaced() {
  pause_ = false;
  stop_ = true;
  restart_ = playing_ && settings_.bAutoPlay;
}

void PlayControls::Clear() {
  host_.ClearMelodyView();
  ws_.melody.Clear();
  ws_.melody.lCurrentIndex = -1;
}

void PlayControls::StartOver() {
  Stop();
  ws_.melody.lCurrentIndex = -1;
  host_.RefreshMelodyView();
}

void PlayControls::Stop() {
  stop_ = true;
  pause_ = false;
  restart_ = false;
}

void PlayControls::ToEnd() {
  ws_.melody.lCurrentIndex = ws_.melody.UpperBound();
  host_.RefreshMelodyView();
}

void PlayControls::Play() {
  if (pause_) {
    pause_ = false;
    return;
  }
  if (playing_) return;
  playing_ = true;
  host_.EnableComposer(false);
  host_.SetPlayCaption("Playing");
  Ending ending = Ending::Done;
  const LogOperation operation(ws_.log);
  do {
    restart_ = false;
    ending = PlayLoop();
  } while (restart_ && ending == Ending::Stopped);
  playing_ = false;
  pause_ = false;
  host_.EnableComposer(true);
  host_.SetPlayCaption("Play");
  if (ending == Ending::Done) ws_.log.WriteLog("Done Playing", 1);
}

PlayControls::Ending PlayControls::PlayLoop() {
  stop_ = false;
  pause_ = false;
  const int32_t last = ws_.melody.UpperBound();
  // Events run in here, and a click may have shortened the melody.
  for (int32_t i = 0; i <= std::min(last, ws_.melody.UpperBound()); ++i) {
    i -= PlayAt(i);
    if (!ws_.pump.PumpEvents() || !WaitWhilePaused()) return Ending::ProgramEnds;
    if (stop_) return Ending::Stopped;
  }
  return Ending::Done;
}

// Moves the cursor onto the element and plays it.
int32_t PlayControls::PlayAt(int32_t position) {
  ws_.melody.lCurrentIndex = position;
  host_.RefreshMelodyView();
  if (stop_ || position > ws_.melody.UpperBound()) return 0;  // events ran
  const MelodyNote note = ws_.melody.At(position);
  return player_.PlayElement(note, host_.lBeatDuration(), position);
}

// Sleeps while the pause flag is set; false when the program is ending.
bool PlayControls::WaitWhilePaused() {
  constexpr double kLongSleep = 1000;  // milliseconds; a click ends it
  while (pause_ && !stop_ && !ws_.melody.IsEmpty()) {
    if (!ws_.pump.WaitForEvents(kLongSleep)) return false;
  }
  return true;
}

}  // namespace trillomat
