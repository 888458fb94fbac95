// The keys of the composers of the T39 and of the R320 and T28. There a length is chosen by holding the
// tone's key until the display shows the wanted form; accidental and octave follow. No octave or length is
// kept in between.
#pragma once

#include "core/codec.h"
#include "exchange/key_press_run.h"

namespace trillomat {

/// What both phones share; how they write lengths, octaves and commands differs.
class HeldKeys : public PhoneKeys {
 public:
  explicit HeldKeys(Log& log) : log_(log) {}
  Loss Press(const Element& element, std::string& keyText) final;

 protected:
  /// What types an element, and whether that says its length.
  struct Keys {
    std::string text;
    bool saysLength = true;
  };

  /// The E-Melody duration code, "0" whole to "3" eighth; "3", which it is not, for what is shorter.
  static FieldText LengthCode(const Element& element, Log& log);
  Log& EventLog() const { return log_; }

 private:
  Loss PressTone(const Element& element, std::string& keyText);

  virtual Keys PauseKeys(const Element& element) const = 0;
  virtual bool IsCommand(std::string_view special) const = 0;
  virtual std::string_view UnknownToneMessage() const = 0;
  /// How often the octave key is pressed.
  virtual int OctavePresses(int octave) const = 0;
  virtual Keys ToneKeys(std::string_view key, std::string_view lengthCode) const = 0;

  Log& log_;
  // A tone without a key takes over both from the tone before, octave keys included.
  std::string key_;
  std::string modifier_;
};

class T39Keys : public HeldKeys {
 public:
  using HeldKeys::HeldKeys;

 private:
  Keys PauseKeys(const Element& element) const override;
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
  Keys PauseKeys(const Element& element) const override;
  bool IsCommand(std::string_view special) const override;
  std::string_view UnknownToneMessage() const override { return "Critical error in Make R320 Keypress"; }
  int OctavePresses(int octave) const override { return octave == 3 ? 0 : 1; }
  Keys ToneKeys(std::string_view key, std::string_view lengthCode) const override;
};

}  // namespace trillomat
