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

void NokiaKeys::Press(const Element& element, std::string& keyText) {
  if (IsPause(element)) {
    PressPause(element, keyText);
  } else if (!element.Command().empty()) {
    keyText = "Not supported";
  } else {
    PressTone(element, keyText);
  }
  keyText += kLineEnd;
}

void NokiaKeys::PressPause(const Element& element, std::string& keyText) {
  // Other extras cannot be typed: their line repeats the text of the element before.
  if (IsPlain(element)) {
    keyText = "Press: 0";
  } else if (IsDotted(element)) {
    keyText = "Press and hold 0 ";
  }
  composer_.StepLength(DurationCode(element, log_), keyText);
}

void NokiaKeys::PressTone(const Element& element, std::string& keyText) {
  const int code = DurationCode(element, log_);
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    keyText = kToneKeys.at(static_cast<size_t>(tone));
  } else {
    log_.WriteLog("Critical error in Make Nokia Keypress", 1);
  }
  composer_.StepOctave(element.octave, keyText);
  composer_.StepLength(code, keyText);
  keyText.insert(0, IsDotted(element) ? "Press: (hold) " : "Press: ");
}

}  // namespace trillomat
