// NoteCodec::EncodeNote: one record into a token, a function for each notation.
#include "core/ascii.h"
#include "core/note_codec.h"
#include "core/tone.h"

namespace trillomat {
namespace {

// German note names, as the phones of the time write them: b is "H". There are no flats.
constexpr ToneTable<std::string_view> kRtttlNames{"C",  "C#", "C#", "D",  "D#", "D#", "E",  "F", "F#",
                                                  "F#", "G",  "G#", "G#", "A",  "A#", "A#", "H"};

// A token under construction: fields add their text, any of them may raise the flag.
struct Token : FieldText {
  void Add(const FieldText& field) {
    text += field.text;
    unsupported = unsupported || field.unsupported;
  }
  // Takes the flag of a field whose text is put elsewhere or left out.
  std::string Judge(const FieldText& field) {
    unsupported = unsupported || field.unsupported;
    return field.text;
  }
};

// A tone as E-Melody and Melody spell it: the accidental in front of the letter.
struct SpelledTone {
  std::string accidental;
  std::string letter;
};

SpelledTone Spell(const MelodyNote& note) {
  std::string text = ReplaceAll(note.Note, "&", "(b)");
  const size_t split = text.empty() ? 0 : text.size() - 1;
  return {text.substr(0, split), text.substr(split)};
}

// E-Melody's intermediate codes: 0 and 1 are upper case, 0 and 2 carry the dot.
std::string LetterByCode(const std::string& letter, std::string_view code) {
  const bool upper = code == "0" || code == "1";
  const bool dotted = code == "0" || code == "2";
  return (upper ? Uppered(letter) : Lowered(letter)) + (dotted ? "." : "");
}

// The eighth pause reads back as a quarter and the quarter pause vanishes: so the phones' texts are.
std::string_view EMelodyPause(std::string_view code) {
  if (code == "0") return "P.";
  if (code == "1") return "P";
  return code == "3" ? "p." : "";
}

}  // namespace

std::string NoteCodec::EncodeNote(MelodyNote& note, FormatMode mode) const {
  FieldText token;
  if (!note.Special.empty()) {
    if (mode == FormatMode::IMelody) token.text = note.Special;
  } else {
    switch (mode) {
      case FormatMode::IMelody: token = EncodeIMelody(note); break;
      case FormatMode::EMelody: token = EncodeEMelody(note); break;
      case FormatMode::Rtttl: token = EncodeRtttl(note); break;
      case FormatMode::Melody: token = EncodeMelody(note); break;
    }
  }
  note.NotSupported = token.unsupported;
  return token.unsupported ? "[" + token.text + "]" : token.text;
}

FieldText NoteCodec::EncodeIMelody(const MelodyNote& note) const {
  Token token;
  if (IsPause(note)) {
    token.text = "r";
  } else {
    token.Add(EncodeOctave(note, FormatMode::IMelody));
    token.text += Lowered(note.Note);
  }
  token.Add(EncodeDuration(note.Duration, FormatMode::IMelody));
  token.Add(EncodeDurationExtra(note.DurationExtra, FormatMode::IMelody));
  return token;
}

FieldText NoteCodec::EncodeEMelody(const MelodyNote& note) const {
  Token token;
  const std::string code = token.Judge(EncodeDuration(note.Duration, FormatMode::EMelody));
  token.Judge(EncodeDurationExtra(note.DurationExtra, FormatMode::EMelody));
  if (IsPause(note)) {
    token.text = EMelodyPause(code);
    return token;
  }
  const SpelledTone tone = Spell(note);
  token.Add(EncodeOctave(note, FormatMode::EMelody));
  token.text += tone.accidental + LetterByCode(tone.letter, code);
  return token;
}

FieldText NoteCodec::EncodeRtttl(const MelodyNote& note) const {
  Token token;
  const std::string duration = token.Judge(EncodeDuration(note.Duration, FormatMode::Rtttl));
  if (note.Duration != defaults.duration) token.text = duration;
  if (IsPause(note)) {
    token.text += "P";
  } else {
    const int tone = ToneIndex(note.Note);
    if (tone < 0) {
      log_.WriteLog("Couldnot find the note", 1);
      token.unsupported = true;
    } else {
      token.text += kRtttlNames.at(static_cast<size_t>(tone));
    }
    const std::string octave = token.Judge(EncodeOctave(note, FormatMode::Rtttl));
    if (note.Octave != defaults.octave) token.text += octave;
  }
  token.Add(EncodeDurationExtra(note.DurationExtra, FormatMode::Rtttl));
  return token;
}

FieldText NoteCodec::EncodeMelody(const MelodyNote& note) const {
  Token token;
  const std::string code = token.Judge(EncodeDuration(note.Duration, FormatMode::Melody));
  token.Judge(EncodeDurationExtra(note.DurationExtra, FormatMode::Melody));
  if (IsPause(note)) {
    token.text = "p";
    return token;
  }
  const SpelledTone tone = Spell(note);
  token.Add(EncodeOctave(note, FormatMode::Melody));
  token.text += tone.accidental + (code == "2" ? Uppered(tone.letter) : Lowered(tone.letter));
  return token;
}

}  // namespace trillomat
