#include "exchange/key_press_run.h"

#include "core/codec.h"
#include "core/number_text.h"
#include "core/refusal.h"

namespace trillomat {
namespace {

void Require(bool writable) {
  if (!writable) throw ExportFault("the melody takes more key presses than can be written down");
}

}  // namespace

std::string KeyPressText(PhoneKeys& phone, const ElementList& elements, int16_t movedUp,
                         const Services& services) {
  std::string result;
  if (movedUp != 0) {
    result = "All notes have been moved" + SignedText(movedUp) + " (scale) ";
    result += kLineEnd;
  }
  std::string keyText;
  for (size_t i = 0; i < elements.size(); ++i) {
    phone.Press(elements[i], keyText);
    Require(keyText.size() + result.size() <= kLargestExport);
    result += std::to_string(i) + "--> ";
    result += keyText;
    if (!services.pump.PumpEvents()) throw ExportFault(std::string(kProgramEnding));
  }
  return result;
}

void AppendKeys(std::string& text, std::string_view key, int count) {
  constexpr int kMostPresses = 1000000;
  Require(count <= kMostPresses);
  for (int i = 0; i < count; ++i) text += key;
}

void SteppingComposer::StepOctave(int target, std::string& keyText) {
  if (target < keys_.lowestOctave || target > keys_.highestOctave) return;
  while (octave_ != target) {
    keyText += keys_.octaveUp;
    octave_ = octave_ == keys_.highestOctave ? keys_.lowestOctave : octave_ + 1;
  }
}

void SteppingComposer::StepLength(int code, std::string& keyText) {
  AppendKeys(keyText, keys_.longer, duration_ - code);
  AppendKeys(keyText, keys_.shorter, code - duration_);
  duration_ = code;
}

int DurationCode(const Element& element, Log& log) {
  const std::string code = EncodeDuration(element.duration, FormatMode::IMelody, log).text;
  return code.empty() ? 0 : code.front() - '0';
}

}  // namespace trillomat
