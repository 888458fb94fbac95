// Encode: one element into a token, a function for each notation.
#include <algorithm>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/tone.h"

namespace trillomat {
namespace {

// German note names, as the phones of the time write them: b is "H". There are no flats.
constexpr ToneTable<std::string_view> kRtttlNames{"C",  "C#", "C#", "D",  "D#", "D#", "E",  "F", "F#",
                                                  "F#", "G",  "G#", "G#", "A",  "A#", "A#", "H"};

// A token under construction. Any field may make it unsupported, also one whose text is left out.
struct Draft : Token {
  void Add(const FieldText& field) { text += Checked(field); }
  const std::string& Checked(const FieldText& field) {
    supported = supported && field.supported;
    return field.text;
  }
};

// A tone as E-Melody and Melody spell it: the accidental in front of the letter.
struct SpelledTone {
  std::string accidental;
  std::string letter;
};

SpelledTone Spell(const Element& element) {
  std::string text = ReplaceAll(element.Note(), "&", "(b)");
  const size_t split = text.empty() ? 0 : text.size() - 1;
  return {text.substr(0, split), text.substr(split)};
}

// E-Melody's intermediate codes: 0 and 1 are upper case, 0 and 2 carry the dot.
std::string LetterByCode(const std::string& letter, std::string_view code) {
  const bool upper = code == "0" || code == "1";
  const bool dotted = code == "0" || code == "2";
  return (upper ? Uppered(letter) : Lowered(letter)) + (dotted ? "." : "");
}

// An eighth pause reads back as a quarter and a quarter pause vanishes: that is how the phones' texts are.
std::string_view EMelodyPause(std::string_view code) {
  if (code == "0") return "P.";
  if (code == "1") return "P";
  return code == "3" ? "p." : "";
}

Token EncodeIMelody(const Element& element, Log& log) {
  Draft token;
  if (IsPause(element)) {
    token.text = "r";
  } else {
    token.Add(EncodeOctave(element.octave, FormatMode::IMelody));
    token.text += Lowered(element.Note());
  }
  token.Add(EncodeDuration(element.duration, FormatMode::IMelody, log));
  token.Add(EncodeDurationExtra(element.extra, FormatMode::IMelody));
  return token;
}

Token EncodeEMelody(const Element& element, Log& log) {
  Draft token;
  const std::string code = token.Checked(EncodeDuration(element.duration, FormatMode::EMelody, log));
  token.Checked(EncodeDurationExtra(element.extra, FormatMode::EMelody));
  if (IsPause(element)) {
    token.text = EMelodyPause(code);
    return token;
  }
  const SpelledTone tone = Spell(element);
  token.Add(EncodeOctave(element.octave, FormatMode::EMelody));
  token.text += tone.accidental + LetterByCode(tone.letter, code);
  return token;
}

// An octave that today's players have and the phones' composers lack: RTTTL's 4.
constexpr int16_t kLowestModernOctave = 2;

FieldText RtttlOctave(int16_t octave, RtttlSpelling spelling) {
  if (spelling == RtttlSpelling::Modern && octave == kLowestModernOctave) return {.text = "4"};
  return EncodeOctave(octave, FormatMode::Rtttl);
}

void AddRtttlName(Draft& token, const Element& element, Log& log) {
  const int tone = ToneIndex(element.Note());
  if (tone < 0) {
    log.WriteLog("Couldnot find the note", 1);
    token.supported = false;
  } else {
    token.text += kRtttlNames.at(static_cast<size_t>(tone));
  }
}

Token EncodeRtttl(const Element& element, RtttlSpelling spelling, const TokenDefaults& defaults, Log& log) {
  Draft token;
  const std::string duration = token.Checked(EncodeDuration(element.duration, FormatMode::Rtttl, log));
  if (element.duration != defaults.duration) token.text = duration;
  const std::string extra = token.Checked(EncodeDurationExtra(element.extra, FormatMode::Rtttl));
  std::string octave;
  if (IsPause(element)) {
    token.text += "P";
  } else {
    AddRtttlName(token, element, log);
    const std::string digit = token.Checked(RtttlOctave(element.octave, spelling));
    if (element.octave != defaults.octave) octave = digit;
  }
  token.text += spelling == RtttlSpelling::Modern ? extra + octave : octave + extra;
  return token;
}

Token EncodeMelody(const Element& element, Log& log) {
  Draft token;
  const std::string code = token.Checked(EncodeDuration(element.duration, FormatMode::Melody, log));
  token.Checked(EncodeDurationExtra(element.extra, FormatMode::Melody));
  if (IsPause(element)) {
    token.text = "p";
    return token;
  }
  const SpelledTone tone = Spell(element);
  token.Add(EncodeOctave(element.octave, FormatMode::Melody));
  token.text += tone.accidental + (code == "2" ? Uppered(tone.letter) : Lowered(tone.letter));
  return token;
}

Token EncodeSound(const Element& element, FormatMode mode, const TokenDefaults& defaults, Log& log) {
  switch (mode) {
    case FormatMode::IMelody: return EncodeIMelody(element, log);
    case FormatMode::EMelody: return EncodeEMelody(element, log);
    case FormatMode::Rtttl: return EncodeRtttl(element, RtttlSpelling::Classic, defaults, log);
    case FormatMode::Melody: break;
  }
  return EncodeMelody(element, log);
}

}  // namespace

Token Encode(const Element& element, FormatMode mode, const TokenDefaults& defaults, Log& log) {
  if (!element.Command().empty()) {
    return {.text = mode == FormatMode::IMelody ? std::string(element.Command()) : ""};
  }
  Token token = EncodeSound(element, mode, defaults, log);
  if (!token.supported) token.text = "[" + token.text + "]";
  return token;
}

std::string RtttlToken(const Element& element, RtttlSpelling spelling, const TokenDefaults& defaults,
                       Log& log) {
  if (!element.Command().empty()) return {};
  const Token token = EncodeRtttl(element, spelling, defaults, log);
  if (!token.supported) return {};
  if (spelling == RtttlSpelling::Classic) return token.text;
  std::string text = Lowered(token.text);
  std::replace(text.begin(), text.end(), 'h', 'b');
  return text;
}

bool Supports(const Element& element, FormatMode mode) {
  SilentLog silent;
  return Encode(element, mode, {}, silent).supported;
}

bool IsHeld(const Element& element, FormatMode mode) {
  SilentLog silent;
  const Token token = Encode(element, mode, kNoTokenDefaults, silent);
  return token.supported && !token.text.empty();
}

// Goes by the bracket and not by the flag: the note of a damaged file may itself begin with a bracket.
std::string SupportedText(const Element& element, FormatMode mode, const TokenDefaults& defaults, Log& log) {
  std::string text = Encode(element, mode, defaults, log).text;
  if (text.starts_with('[')) text.clear();
  return text;
}

}  // namespace trillomat
