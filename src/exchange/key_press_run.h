// What the key-press exports share: the run over the melody that numbers the lines.
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

/// Where a part of a text stands.
struct TextPart {
  size_t begin = 0;
  size_t size = 0;
};

/// What keys are wanted for.
struct MelodyToType {
  size_t elements = 0;  ///< some so many
  int octavesUp = 0;    ///< that all of them are moved by
};

/// One phone's way to type a melody. Abstract because each phone's composer wants other keys.
class PhoneKeys {
 public:
  PhoneKeys() = default;
  PhoneKeys(const PhoneKeys&) = delete;
  PhoneKeys& operator=(const PhoneKeys&) = delete;
  virtual ~PhoneKeys() = default;

  /// Writes what types `element` when it is moved, its CR LF included, behind `text`, which has that of the
  /// element before at `before`. Gives what the keys do not say of it. Throws ExportFault for more presses
  /// than can be written.
  virtual Loss Press(const Element& element, TextPart before, TextWriter& text) = 0;
};

/// The Result text for `elements`, which the keys are for, moved by `octaves`: a line on the move, if it is
/// one up, and a numbered line an element. Throws ExportFault when the text grows beyond kLargestExport or
/// the program is ending.
std::string KeyPressText(PhoneKeys& phone, const ElementList& elements, int octaves,
                         const Services& services);

/// Appends `key` `count` times, if that is more than 0. Throws ExportFault for more than a million times,
/// which only a damaged count asks for.
void AppendKeys(std::string& text, std::string_view key, int64_t count);

}  // namespace trillomat
