#include "exchange/nokia_keys.h"

#include "core/codec.h"
#include "core/tone.h"

namespace trillomat {
namespace {

// There are no flats: they are the sharps of the tone below.
constexpr ToneTable<std::string_view> kToneKeys{"1",  "1#", "1#", "2",  "2#", "2#", "3",  "4", "4#",
                                                "4#", "5",  "5#", "5#", "6",  "6#", "6#", "7"};

bool IsPlain(const Element& element) { return element.extra == 1.0F; }

bool IsDotted(const Element& element) {
  return !IsPlain(element) && EncodeDurationExtra(element.extra, FormatMode::Rtttl).text == ".";
}

}  // namespace

Loss NokiaKeys::Press(const Element& element, std::string& keyText) {
  Loss loss = Loss::Command;
  if (IsPause(element)) {
    loss = PressPause(element, keyText);
  } else if (!element.Command().empty()) {
    keyText = "Not supported";
  } else {
    loss = PressTone(element, keyText);
  }
  keyText += kLineEnd;
  return loss;
}

Loss NokiaKeys::PressPause(const Element& element, std::string& keyText) {
  // Other extras cannot be typed: their line repeats the text of the element before.
  Loss loss = Loss::None;
  if (IsPlain(element)) {
    keyText = "Press: 0";
  } else if (IsDotted(element)) {
    keyText = "Press and hold 0 ";
  } else {
    loss = Loss::Extra;
  }
  composer_.StepLength(DurationCode(element, log_), keyText);
  return loss;
}

Loss NokiaKeys::PressTone(const Element& element, std::string& keyText) {
  const int code = DurationCode(element, log_);
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    keyText = kToneKeys.at(static_cast<size_t>(tone));
  } else {
    log_.WriteLog("Critical error in Make Nokia Keypress", 1);
  }
  composer_.StepOctave(element.octave, keyText);
  composer_.StepLength(code, keyText);
  const bool dotted = IsDotted(element);
  keyText.insert(0, dotted ? "Press: (hold) " : "Press: ");
  if (tone < 0) return Loss::NotUnderstood;
  return dotted || IsPlain(element) ? Loss::None : Loss::Extra;
}

}  // namespace trillomat
