// One element as a text token in each of the four notations, and back. Pure functions: what they need is
// handed to them, what they find is returned; the log alone hears of what they could not make out.
//
//   mode      tone                                    pause   command
//   I-Melody  [*octave] [#|&] letter length [.:;]     r2.     ledon V+ V10 ( @2)
//   E-Melody  [+|++] [#|(b)] letter [.]               P. P p.
//   RTTTL     [length] LETTER [#] [octave] [.]        8P
//   Melody    [+] [#|(b)] letter                      p
//
// The two directions are no exact inverses: decoding is lenient and takes positions on trust, encoding
// is strict and sets in square brackets what the mode cannot express. The notations are those of the
// iMelody 1.2 format, of the phones' own E-Melody and Melody texts, and of Nokia's RTTTL.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/element.h"
#include "core/format_mode.h"
#include "core/log.h"
#include "core/song.h"

namespace trillomat {

/// One element as the mode writes it: "" where it writes nothing, in brackets where it cannot express it.
struct Token {
  std::string text;
  bool supported = true;

  bool operator==(const Token&) const = default;
};

/// The element of one token; RTTTL tokens take what they leave out from `defaults`. Never fails: what
/// cannot be decoded stays zero or empty and is logged; RTTTL tokens that are refused become the command
/// kRefusedToken.
Element Decode(std::string_view token, FormatMode mode, const TokenDefaults& defaults, Log& log);

inline constexpr std::string_view kRefusedToken = "Error";

/// The commands of the iMelody format that switch something of the phone.
inline constexpr std::array<std::string_view, 6> kSwitchCommands{"ledon",   "ledoff", "vibeon",
                                                                 "vibeoff", "backon", "backoff"};

/// Whether the element is one that a composer could have entered: a tone, a pause or a command of the iMelody
/// format, its length one of kDurations and kDurationExtras, its octave one that this format has. False for
/// what a reader kept without knowing what it is.
bool IsUnderstood(const Element& element);

/// The token of one element; RTTTL tokens leave out what equals `defaults`.
Token Encode(const Element& element, FormatMode mode, const TokenDefaults& defaults, Log& log);

/// How RTTTL is spelled.
enum class RtttlSpelling {
  Classic,  ///< as the phones of the time write it, "8C#6.": what Encode gives
  Modern,   ///< as today's players read it, "8c#.6": lower case, "b" for b, the dot before the octave
};

/// What RTTTL text holds of an element: its token in that spelling, "" where it cannot express it. Modern
/// spelling has the octave below those of the phones' composers as well, RTTTL's 4.
std::string RtttlToken(const Element& element, RtttlSpelling spelling, const TokenDefaults& defaults,
                       Log& log);

/// Whether `mode` can express the element: its token does not come out in brackets.
bool Supports(const Element& element, FormatMode mode);

/// Whether a file of `mode` holds the element: not where its token comes out in brackets, nor where the mode
/// leaves it out silently, as all but I-Melody do with commands.
bool IsHeld(const Element& element, FormatMode mode);

/// What a file of a format without commands gets of an element: its token, "" where that begins with a
/// bracket.
std::string SupportedText(const Element& element, FormatMode mode, const TokenDefaults& defaults, Log& log);

/// An encoded field: its text, and whether the mode has a proper one.
struct FieldText {
  std::string text;
  bool supported = true;
};

/// Beats of a duration text; 0 and a level-2 log line for an unknown one. In E-Melody and Melody the text
/// is the tone with its dot, and its case tells the length.
float DecodeDuration(std::string_view text, FormatMode mode, Log& log);
/// The multiplier of an extra mark, 1.0 for any text that is none.
float DecodeDurationExtra(std::string_view text, FormatMode mode);

/// The code of a duration in beats. E-Melody and Melody give an intermediate code, "0" to "3" for whole to
/// eighth. A duration without a code is logged.
FieldText EncodeDuration(float duration, FormatMode mode, Log& log);
FieldText EncodeDurationExtra(float extra, FormatMode mode);
/// The mark of an internal octave number.
FieldText EncodeOctave(int16_t octave, FormatMode mode);

}  // namespace trillomat
