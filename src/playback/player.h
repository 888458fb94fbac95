// Plays one element of a melody: a tone on the chosen output, a pause, a command or a repeat mark.
// Synchronous; while it waits, events run, so anything may have happened to the melody afterwards.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/clock.h"
#include "core/workspace.h"
#include "playback/phone_lights.h"
#include "playback/player_view.h"
#include "playback/repeat_block.h"
#include "playback/sound_device.h"
#include "playback/wave_synthesis.h"

namespace trillomat {

/// What a tone sounds on, in the order of the menu. Midi sounds nothing and takes no time.
enum class OutputType : int16_t { Wave = 0, Beep = 1, Midi = 2 };

enum class ElementKind { Tone, Pause, Command, Repeat };

/// What playing one element came to.
struct PlayedElement {
  ElementKind kind = ElementKind::Tone;
  int32_t length = 0;     ///< milliseconds
  int32_t frequency = 0;  ///< hertz, 0 for no tone
};

/// What the player reaches the outside world through.
struct PlayerSeams {
  Log& log;
  EventPump& pump;
  const Clock& clock;
  SoundDevice& sound;
  PlayerView& view;
};

class Player {
 public:
  Player(const Workspace& ws, const Clock& clock, SoundDevice& sound, PlayerView& view)
      : Player(ws, PlayerSeams{ws.log, ws.pump, clock, sound, view}) {}
  /// A player with a log and a pump of its own, in place of those of the workspace.
  Player(const Workspace& ws, const PlayerSeams& seams) : ws_(ws), seams_(seams) {}

  OutputType outputType = OutputType::Wave;
  RepeatBlock repeat;

  /// Plays `note`, which is at `index` of the melody, with a beat of `beat` milliseconds. Returns how
  /// many elements back playing goes on (subtract it, then advance by one as usual), 0 normally.
  /// `note` may be an element of the melody itself: it is not read again once events have run.
  int32_t PlayElement(const MelodyNote& note, int32_t beat, int32_t index);

  /// Waits for the length of a pause.
  void PlayPause(const MelodyNote& note, int32_t beat);

  /// Sleeps until `milliseconds` have passed on the clock, letting events run; leaves early when the
  /// program is ending. A wait across midnight lasts until the clock passes its start again.
  void Wait(float milliseconds);

  /// Shows the frequency of the base frequency (Hz) in an internal octave and sounds it for `length`
  /// milliseconds. A base frequency of 0 takes no time.
  void PlayTone(int32_t length, int32_t base, int16_t octave);

  /// True while a tone sounds, also for those who run inside its wait.
  bool NoteIsSounding() const { return sounding_ > 0; }
  const PhoneLights& Lights() const { return lights_; }
  /// What the last PlayElement came to.
  const PlayedElement& LastPlayed() const { return last_; }

 private:
  int32_t PlayRepeatEnd(std::string_view special, int32_t index);
  void PlayCommand(std::string_view special);
  void PlayNote(const MelodyNote& note, int32_t beat);
  void BeepTone(int32_t hertz, int32_t length);
  void PlayToneWave(int32_t hertz, int32_t length);
  bool StartWave();
  void StopWave();

  const Workspace& ws_;
  PlayerSeams seams_;
  WaveSynthesis wave_;
  PhoneLights lights_;
  PlayedElement last_;
  int sounding_ = 0;         ///< tones that sound: a click during one may play another inside it
  bool timePassed_ = false;  ///< since the last jump of a repeat
};

}  // namespace trillomat
