// What the key-press exports share: the run over the melody that numbers the lines, and the counters of
// a phone's composer that keeps its octave and length from one note to the next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/element.h"
#include "core/services.h"

namespace trillomat {

inline constexpr std::string_view kLineEnd = "\r\n";

/// The largest export text, in bytes. A tone without keys takes over the whole text of the element before
/// it, so damaged melodies would otherwise grow a text with the square of their length.
inline constexpr size_t kLargestExport = size_t{256} << 20U;

/// Ends an export without a text. what() is for the user.
class ExportFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What an export cannot say of an element as it is.
enum class Loss {
  None,
  NotUnderstood,  ///< no reader knew what it is
  Command,
  Octave,
  Length,
  Extra,    ///< a dot, double dot or triplet
  TooMany,  ///< it stands behind the longest tune that the phone takes
};

/// One phone's way to type a melody. Abstract because each phone's composer wants other keys.
class PhoneKeys {
 public:
  PhoneKeys() = default;
  PhoneKeys(const PhoneKeys&) = delete;
  PhoneKeys& operator=(const PhoneKeys&) = delete;
  virtual ~PhoneKeys() = default;

  /// Turns `keyText`, the text of the element before, into that of `element`, its CR LF included. Gives what
  /// the keys do not say of it.
  virtual Loss Press(const Element& element, std::string& keyText) = 0;
};

/// The Result text for `elements`, which have been adapted: a line on the move up by `movedUp` octaves, if
/// that is not 0, and a numbered line an element. Throws ExportFault when the text grows beyond
/// kLargestExport or the program is ending.
std::string KeyPressText(PhoneKeys& phone, const ElementList& elements, int16_t movedUp,
                         const Services& services);

/// Appends `key` `count` times, if that is more than 0. Throws ExportFault for more than a million times,
/// which only a damaged count asks for.
void AppendKeys(std::string& text, std::string_view key, int count);

/// The composer of the Nokia phones and the T68i: one key steps through the octaves and wraps, two keys step
/// through the lengths.
class SteppingComposer {
 public:
  struct Keys {
    std::string_view octaveUp;
    std::string_view longer;
    std::string_view shorter;
    int lowestOctave;  ///< where the octave key wraps to
    int highestOctave;
  };

  explicit SteppingComposer(const Keys& keys) : keys_(keys) {}

  /// Appends the keys from the current octave to `target`; none when the composer does not have it.
  void StepOctave(int target, std::string& keyText);
  /// Appends the keys from the current length to the I-Melody duration code `code`, 0 whole to 5.
  void StepLength(int code, std::string& keyText);

 private:
  Keys keys_;
  int octave_ = 4;
  int duration_ = 2;
};

/// The I-Melody duration code, 0 whole to 5 thirty-second; a length without a code counts as 0 and is logged.
int DurationCode(const Element& element, Log& log);

}  // namespace trillomat
