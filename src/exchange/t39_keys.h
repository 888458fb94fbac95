// The keys of the composers of the T39 and of the R320 and T28. There a length is chosen by holding the
// tone's key until the display shows the wanted form; accidental and octave follow. No octave or length is
// kept in between.
#pragma once

#include <cstdint>

#include "core/codec.h"
#include "core/element_cache.h"
#include "exchange/key_press_run.h"

namespace trillomat {

/// What both phones share. Each has its own way to type lengths, octaves and commands.
class HeldKeys : public PhoneKeys {
 public:
  HeldKeys(const MelodyToType& melody, Log& log)
      : log_(log), octavesUp_(melody.octavesUp), known_(melody.elements) {}
  Loss Press(const Element& element, TextPart before, TextWriter& text) final;

 protected:
  /// The keys of an element, and whether they express its length.
  struct Keys {
    std::string text;
    bool saysLength = true;
  };

  /// The E-Melody duration code, "0" whole to "3" eighth. A shorter length has "3" too, and is not supported.
  static FieldText LengthCode(const Element& element, Log& log);

 private:
  // The last tone that had a key. A tone without one is typed with its key, accidental and octave keys.
  struct LastTone {
    int tone = -1;  ///< as ToneIndex; -1 for none yet
    int64_t octaveKeys = 0;
  };

  // The line of an element, with its end.
  struct Typed {
    std::string text = {};
    Loss loss = Loss::None;
    int tone = -1;  ///< as ToneIndex; -1 for what is none
  };

  // The Typed of an element, if it is short and nothing was logged about it.
  struct Known {
    ReadyText<58> text;
    int8_t tone = -1;
    uint8_t octaveKeys = 0;
    Loss loss = Loss::None;
  };

  Loss PressFirst(const Element& element, TextWriter& text);
  Typed Type(const Element& element, Log& log);
  Typed TypeTone(const Element& element, Log& log);

  virtual Keys PauseKeys(const Element& element, Log& log) const = 0;
  virtual bool IsCommand(std::string_view special) const = 0;
  virtual std::string_view UnknownToneMessage() const = 0;
  /// How often the octave key is pressed; less than 0 counts as 0.
  virtual int OctavePresses(int octave) const = 0;
  virtual Keys ToneKeys(std::string_view key, std::string_view lengthCode) const = 0;

  Log& log_;
  int octavesUp_;
  LastTone last_;
  ElementCache<Known> known_;  ///< by the elements as they are before the move
};

class T39Keys : public HeldKeys {
 public:
  using HeldKeys::HeldKeys;

 private:
  Keys PauseKeys(const Element& element, Log& log) const override;
  bool IsCommand(std::string_view special) const override;
  // The T39 shares the T68i's message.
  std::string_view UnknownToneMessage() const override { return "Critical error in Make T68i Keypress"; }
  int OctavePresses(int octave) const override { return octave - 3; }
  Keys ToneKeys(std::string_view key, std::string_view lengthCode) const override;
};

class R320Keys : public HeldKeys {
 public:
  using HeldKeys::HeldKeys;

 private:
  Keys PauseKeys(const Element& element, Log& log) const override;
  bool IsCommand(std::string_view special) const override;
  std::string_view UnknownToneMessage() const override { return "Critical error in Make R320 Keypress"; }
  int OctavePresses(int octave) const override { return octave == 3 ? 0 : 1; }
  Keys ToneKeys(std::string_view key, std::string_view lengthCode) const override;
};

}  // namespace trillomat
