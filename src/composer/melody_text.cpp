#include "composer/melody_text.h"

#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

/// Written in front of every token.
constexpr std::string_view kSeparator = "   ";

// The tokens around the cursor. An element without a token counts as one of those shown all the same.
class Tokens {
 public:
  Tokens(const Document& document, const TokenDefaults& defaults, Log& log)
      : document_(document), defaults_(defaults), log_(log) {}

  std::string At(int32_t index) const {
    std::string text = Encode(document_.At(index), document_.Mode(), defaults_, log_).text;
    return text.empty() ? text : std::string(kSeparator) + text;
  }

  std::string Left() const {
    const int32_t cursor = document_.Cursor();
    std::string text;
    for (int32_t i = cursor; i >= 0 && i >= cursor - Shown(); --i) text.insert(0, At(i));
    return text;
  }

  std::string Right() const {
    const int32_t cursor = document_.Cursor();
    std::string text;
    for (int32_t i = cursor + 1; i <= cursor + Shown() && i <= document_.LastIndex(); ++i) text += At(i);
    return text;
  }

 private:
  int32_t Shown() const { return LimitsOf(document_.Mode()).elementsShown; }

  const Document& document_;
  const TokenDefaults& defaults_;
  Log& log_;
};

}  // namespace

MelodyText TextOf(const Document& document, bool useDefaults, Log& log) {
  MelodyText text;
  if (document.IsEmpty()) return text;
  TokenDefaults defaults = kNoTokenDefaults;
  if (document.Mode() == FormatMode::Rtttl) {
    const TokenDefaults commonest = document.CommonestDefaults();
    text.defaults = {DecimalText(commonest.octave + 2),
                     EncodeDuration(commonest.duration, FormatMode::Rtttl, log).text};
    if (useDefaults) defaults = commonest;
  }
  const Tokens tokens(document, defaults, log);
  text.left = tokens.Left();
  text.right = tokens.Right();
  return text;
}

}  // namespace trillomat
