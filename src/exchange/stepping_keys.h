// The keys of a composer that keeps its octave and length from one note to the next, as those of the Nokia
// phones and of the T68i do: one key steps through the octaves and wraps, two keys step through the lengths.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/element_cache.h"
#include "exchange/key_press_run.h"

namespace trillomat {

/// The octave and the length that such a composer is set to, and the keys that step to others.
class SteppingComposer {
 public:
  /// A target that stands for no step at all.
  static constexpr int kAsItIs = -1;

  /// Keys of at most two characters.
  struct Keys {
    std::string_view octaveUp;
    std::string_view longer;
    std::string_view shorter;
    int lowestOctave;  ///< where the octave key wraps to
    int highestOctave;
  };

  explicit SteppingComposer(const Keys& keys)
      : keys_(keys),
        octaveUp_(Often(keys.octaveUp)),
        longer_(Often(keys.longer)),
        shorter_(Often(keys.shorter)) {}

  /// Writes the keys from the current octave to `target`; none when the composer does not have it.
  void StepOctave(int target, TextWriter& text);
  /// Writes the keys from the current length to the I-Melody duration code `code`, 0 whole to 5.
  void StepLength(int code, TextWriter& text);

 private:
  // A key as often as the most steps need it: 5, from one end of the six lengths to the other.
  using OftenPressed = ReadyText<10>;

  static OftenPressed Often(std::string_view key);

  Keys keys_;
  OftenPressed octaveUp_;
  OftenPressed longer_;
  OftenPressed shorter_;
  int octave_ = 4;
  int duration_ = 2;
};

/// The line that types an element on such a composer, whatever that is set to; its parts in their order.
struct ElementKeys {
  std::string before;                      ///< in front of the stepping keys
  bool again = false;                      ///< the whole line of the element before is repeated here
  int octave = SteppingComposer::kAsItIs;  ///< target of the octave key
  int length = SteppingComposer::kAsItIs;  ///< target of the length keys, an I-Melody duration code
  std::string after = {};                  ///< behind the stepping keys, without the line end
  Loss loss = Loss::None;
};

class SteppingKeys : public PhoneKeys {
 public:
  SteppingKeys(const SteppingComposer::Keys& keys, const MelodyToType& melody, Log& log)
      : log_(log), octavesUp_(melody.octavesUp), composer_(keys), known_(melody.elements) {}
  Loss Press(const Element& element, TextPart before, TextWriter& text) final;

 private:
  // The ElementKeys of an element, if it is short, repeats nothing and nothing was logged about it.
  struct Known {
    ReadyText<23> before;
    ReadyText<39> after;
    int16_t octave = 0;
    int8_t length = 0;
    Loss loss = Loss::None;
  };

  virtual ElementKeys PauseKeys(const Element& element, Log& log) const = 0;
  virtual ElementKeys CommandKeys(std::string_view command) const = 0;
  virtual ElementKeys ToneKeys(const Element& element, Log& log) const = 0;

  ElementKeys KeysOf(const Element& element, Log& log) const;

  Loss PressFirst(const Element& element, TextPart before, TextWriter& text);

  Log& log_;
  int octavesUp_;
  SteppingComposer composer_;
  ElementCache<Known> known_;  ///< by the elements as they are before the move
};

/// The I-Melody duration code, 0 whole to 5 thirty-second; a length without a code counts as 0 and is logged.
int DurationCode(const Element& element, Log& log);

}  // namespace trillomat
