// One element as a text token in each of the four notations, and back.
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

#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/log.h"
#include "core/melody.h"

namespace trillomat {

/// An encoded field: its text, and whether the mode has no proper one.
struct FieldText {
  std::string text;
  bool unsupported = false;
};

class NoteCodec {
 public:
  explicit NoteCodec(Log& log) : log_(log) {}

  /// What RTTTL tokens leave out.
  MelodyDefaults defaults;

  /// The record of one token. Never fails: what cannot be decoded stays zero or empty and is logged;
  /// RTTTL tokens that are refused carry "Error" in Special.
  MelodyNote DecodeNote(std::string_view token, FormatMode mode) const;

  /// The token of one record, "" where the mode writes nothing for it. Stores in `note.NotSupported`
  /// whether the token came out in brackets.
  std::string EncodeNote(MelodyNote& note, FormatMode mode) const;

  /// Beats of a duration text; 0 and a level-2 log line for an unknown one. In E-Melody and Melody
  /// the text is the tone with its dot, and its case tells the length.
  float DecodeDuration(std::string_view text, FormatMode mode) const;
  /// The multiplier of an extra mark, 1.0 for any text that is none.
  static float DecodeDurationExtra(std::string_view text, FormatMode mode);

  /// The code of a duration in beats. E-Melody and Melody give an intermediate code, "0" to "3" for
  /// whole to eighth. A duration without a code is logged.
  FieldText EncodeDuration(float duration, FormatMode mode) const;
  static FieldText EncodeDurationExtra(float extra, FormatMode mode);
  static FieldText EncodeOctave(const MelodyNote& note, FormatMode mode);

 private:
  MelodyNote DecodeIMelody(std::string_view text) const;
  MelodyNote DecodeEMelody(std::string_view text) const;
  MelodyNote DecodeRtttl(std::string_view text) const;
  MelodyNote DecodeMelody(std::string_view text) const;
  FieldText EncodeIMelody(const MelodyNote& note) const;
  FieldText EncodeEMelody(const MelodyNote& note) const;
  FieldText EncodeRtttl(const MelodyNote& note) const;
  FieldText EncodeMelody(const MelodyNote& note) const;

  Log& log_;
};

}  // namespace trillomat
