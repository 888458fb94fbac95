// Plays one element of a song: a tone on the chosen output, a pause, a command or a repeat mark.
// Synchronous; while it waits, events run, so anything may have happened to the song afterwards.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/clock.h"
#include "core/output_type.h"
#include "core/services.h"
#include "document/document.h"
#include "playback/player_view.h"
#include "playback/repeat_block.h"
#include "playback/sound_device.h"

namespace trillomat {

enum class ElementKind { Tone, Pause, Command, Repeat };

/// What came of playing one element.
struct PlayedElement {
  ElementKind kind = ElementKind::Tone;
  int32_t length = 0;     ///< milliseconds; 0 for a tone that is not sounded
  int32_t frequency = 0;  ///< hertz, 0 for no tone
};

/// The indicators of the phone picture.
struct PhoneLights {
  bool led = false;
  bool backlight = false;

  /// The phone picture that shows this state: 0 neither, 1 backlight, 2 LED, 3 both.
  int Picture() const { return (led ? 2 : 0) + (backlight ? 1 : 0); }
  /// Performs "ledon", "ledoff", "backon" or "backoff"; false for any other command.
  bool Perform(std::string_view command);
};

/// What the player reaches the outside world through.
struct PlayerSeams {
  Services services;
  const Clock& clock;
  SoundDevice& sound;
  PlayerView& view;
};

class Player {
 public:
  /// Plays elements at the tempo and in the mode of `document`, whatever they are at that moment.
  Player(const Document& document, const PlayerSeams& seams) : document_(document), seams_(seams) {}

  OutputType outputType = OutputType::Wave;
  RepeatBlock repeat;

  /// Plays `element`, which is at `index` of the song. Returns by how many elements to go back before going
  /// on to the next one: 0 but for the end of a repeat. `element` may be one of the document's own: it is not
  /// read again once events have run. Before a tone that lets no events run, what was shown is painted.
  int32_t PlayElement(const Element& element, int32_t index);

  /// To be called before elements are played again. If no time has passed since the last call, sleeps a
  /// moment and lets events run: an endless block of elements that take no time would keep the processor
  /// busy.
  void BeginRound();

  /// Ends the tone or pause that is being waited for; to be called by handlers that run during the wait. A
  /// beep goes on.
  void CutShort() { cutShort_ = true; }

  /// Shows the phone at rest: lights and shaking off, frequency 0.
  void ResetPhone();

  /// True while a tone sounds; handlers that run meanwhile can ask.
  bool NoteIsSounding() const { return sounding_; }
  /// True when tones sound without letting events run, so that what is typed meanwhile waits.
  bool TonesBlock() const { return outputType == OutputType::Beep; }
  const PhoneLights& Lights() const { return lights_; }
  /// What the last PlayElement came to.
  const PlayedElement& LastPlayed() const { return last_; }

 private:
  int32_t PlayRepeatEnd(std::string_view command, int32_t index);
  void PlayCommand(std::string_view command);
  void PlayPause(const Element& element);
  void PlayNote(const Element& element);
  void Sound(int32_t hertz, int32_t milliseconds);
  void SoundBeep(int32_t hertz, int32_t milliseconds);
  void SoundWave(int32_t hertz, int32_t milliseconds);
  void Wait(float milliseconds);

  const Document& document_;
  PlayerSeams seams_;
  PhoneLights lights_;
  PlayedElement last_;
  bool sounding_ = false;
  bool cutShort_ = false;    ///< the wait that is running is to end
  bool timePassed_ = false;  ///< since the last round began
};

}  // namespace trillomat
