#include "exchange/nokia_keys.h"

#include "core/tone.h"

namespace trillomat {
namespace {

// There are no flats: they are the sharps of the tone below.
constexpr ToneTable<std::string_view> kToneKeys{"1",  "1#", "1#", "2",  "2#", "2#", "3",  "4", "4#",
                                                "4#", "5",  "5#", "5#", "6",  "6#", "6#", "7"};

bool IsPlain(const MelodyNote& note) { return note.DurationExtra == 1.0F; }

bool IsDotted(const MelodyNote& note) {
  return !IsPlain(note) && NoteCodec::EncodeDurationExtra(note.DurationExtra, FormatMode::Rtttl).text == ".";
}

}  // namespace

void NokiaKeys::Press(const MelodyNote& note, std::string& keyText) {
  if (IsPause(note)) {
    PressPause(note, keyText);
  } else if (!note.Special.empty()) {
    keyText = "Not supported";
  } else {
    PressTone(note, keyText);
  }
  keyText += kLineEnd;
}

void NokiaKeys::PressPause(const MelodyNote& note, std::string& keyText) {
  // Other extras cannot be typed: their line repeats the text of the element before.
  if (IsPlain(note)) {
    keyText = "Press: 0";
  } else if (IsDotted(note)) {
    keyText = "Press and hold 0 ";
  }
  composer_.StepLength(DurationCode(note, ws_.codec), keyText);
}

void NokiaKeys::PressTone(const MelodyNote& note, std::string& keyText) {
  const int code = DurationCode(note, ws_.codec);
  const int tone = ToneIndex(note.Note);
  if (tone >= 0) {
    keyText = kToneKeys.at(static_cast<size_t>(tone));
  } else {
    ws_.log.WriteLog("Critical error in Make Nokia Keypress", 1);
  }
  composer_.StepOctave(note.Octave, keyText);
  composer_.StepLength(code, keyText);
  keyText.insert(0, IsDotted(note) ? "Press: (hold) " : "Press: ");
}

}  // namespace trillomat
