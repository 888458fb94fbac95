// What the key-press exports share: the interface of a phone's keys, and the run over the melody that numbers
// the lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/element.h"
#include "core/services.h"
#include "core/text_writer.h"

namespace trillomat {

inline constexpr std::string_view kLineEnd = "\r\n";

/// The largest export text, in bytes. A tone that has no key repeats the whole text of the element before it,
/// so the text of a damaged melody would otherwise grow with the square of its length.
inline constexpr size_t kLargestExport = size_t{256} << 20U;

/// Ends an export without a text. what() is for the user.
class ExportFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What of an element an export cannot express.
enum class Loss {
  None,
  NotUnderstood,  ///< IsUnderstood is false for it
  Command,
  Octave,
  Length,
  Extra,    ///< a dot, double dot or triplet
  TooMany,  ///< it is beyond the longest tune that the phone takes
};

/// Where a part of a text stands.
struct TextPart {
  size_t begin = 0;
  size_t size = 0;
};

/// The melody that keys are wanted for.
struct MelodyToType {
  size_t elements = 0;  ///< about how many it has
  int octavesUp = 0;    ///< by which all of them are moved
};

/// One phone's way to type a melody. Abstract because each phone's composer wants other keys.
class PhoneKeys {
 public:
  PhoneKeys() = default;
  PhoneKeys(const PhoneKeys&) = delete;
  PhoneKeys& operator=(const PhoneKeys&) = delete;
  virtual ~PhoneKeys() = default;

  /// Appends to `text` the line of keys that types `element`, moved as MelodyToType says, and its CR LF.
  /// `before` is where the line of the element before stands in `text`. Returns what the keys cannot express.
  /// Throws ExportFault for more presses than can be written down.
  virtual Loss Press(const Element& element, TextPart before, TextWriter& text) = 0;
};

/// The Result text of an export: a line that tells the move, if it is upwards, and a numbered line for each
/// element. `phone` was made for these elements and this move. Throws ExportFault when the text grows beyond
/// kLargestExport or the program is ending.
std::string KeyPressText(PhoneKeys& phone, const ElementList& elements, int octaves,
                         const Services& services);

/// Appends `key` `count` times, if that is more than 0. Throws ExportFault for more than a million times,
/// which only a damaged count asks for.
void AppendKeys(std::string& text, std::string_view key, int64_t count);

}  // namespace trillomat
