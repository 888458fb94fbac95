// The keys of a composer that keeps its octave and length from one note to the next, as those of the Nokia
// phones and of the T68i do: one key steps through the octaves and wraps, two keys step through the lengths.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/element_cache.h"
#include "exchange/key_press_run.h"

namespace trillomat {

/// The octave and the length of such a composer.
class SteppingComposer {
 public:
  /// A target that no key steps to.
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
  // As often as there are steps: those between the lengths are the most.
  using OftenPressed = ReadyText<10>;

  static OftenPressed Often(std::string_view key);

  Keys keys_;
  OftenPressed octaveUp_;
  OftenPressed longer_;
  OftenPressed shorter_;
  int octave_ = 4;
  int duration_ = 2;
};

/// What types an element on such a composer, whatever that is set to.
struct ElementKeys {
  std::string before;                      ///< the keys that step
  bool again = false;                      ///< whether the whole text of the element before comes behind that
  int octave = SteppingComposer::kAsItIs;  ///< to which is stepped
  int length = SteppingComposer::kAsItIs;  ///< to which is stepped then, an I-Melody duration code
  std::string after = {};                  ///< the rest of the line, without its end
  Loss loss = Loss::None;
};

class SteppingKeys : public PhoneKeys {
 public:
  SteppingKeys(const SteppingComposer::Keys& keys, const MelodyToType& melody, Log& log)
      : log_(log), octavesUp_(melody.octavesUp), composer_(keys), known_(melody.elements) {}
  Loss Press(const Element& element, TextPart before, TextWriter& text) final;

 private:
  // The ElementKeys of an element that logs nothing and takes over nothing.
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
  ElementCache<Known> known_;  ///< by the elements as they were before they moved
};

/// The I-Melody duration code, 0 whole to 5 thirty-second; a length without a code counts as 0 and is logged.
int DurationCode(const Element& element, Log& log);

}  // namespace trillomat
