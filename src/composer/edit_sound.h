// Sounds the elements that editing enters, changes or passes: one at a time, the newest first.
//
// A command changes the song and then asks for its element to be heard. While an element sounds, events run,
// and with them other commands: such a command only leaves its element as the next one and cuts the present
// one short. So nothing sounds inside something else, and nothing typed is late by more than one tone.
#pragma once

#include <optional>

#include "core/event_pump.h"
#include "document/document.h"
#include "playback/player.h"

namespace trillomat {

class EditSound {
 public:
  /// What the element was sounded for.
  enum class Cause { EnteredTone, Other };

  EditSound(const Document& document, Player& player, EventPump& pump)
      : document_(document), player_(player), pump_(pump) {}

  /// Sounds the element at `index`, if there is one, and returns afterwards. While another one sounds,
  /// returns at once: the call that sounds that one sounds this one next. Before a tone that lets no events
  /// run, the commands that wait in the event queue are let run. An element that is gone when its turn comes
  /// is not sounded.
  void Play(int32_t index, Cause cause);
  /// Forgets the element that is to sound next.
  void Forget() { next_.reset(); }

  /// True while a call of Play sounds elements, its own or those that other calls left to it.
  bool Runs() const { return runs_; }
  /// The same, where the newest element is a tone that was entered.
  bool EnteredToneSounds() const { return runs_ && cause_ == Cause::EnteredTone; }

 private:
  struct Request {
    Element element;
    int32_t index;
  };

  bool LetCommandsRun();
  void PlayNext();

  const Document& document_;
  Player& player_;
  EventPump& pump_;
  std::optional<Request> next_;
  Cause cause_ = Cause::Other;  ///< of the newest request
  bool runs_ = false;
};

}  // namespace trillomat
