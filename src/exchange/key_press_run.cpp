#include "exchange/key_press_run.h"

#include "core/number_text.h"
#include "formats/fault_trap.h"

namespace trillomat {
namespace {

void Require(bool writable) {
  if (!writable) throw QuietFailure("the melody takes more key presses than can be written down");
}

}  // namespace

std::string KeyPressText(PhoneKeys& phone, Workspace& ws) {
  std::string result;
  if (ws.ExportOctaveShift != 0) {
    result = "All notes have been moved" + SignedText(ws.ExportOctaveShift) + " (scale) ";
    result += kLineEnd;
  }
  std::string keyText;
  // Events that run in between may change the melody, so its size is read anew for each element.
  for (size_t i = 0; i < ws.ExportMelody.size(); ++i) {
    phone.Press(ws.ExportMelody[i], keyText);
    Require(keyText.size() + result.size() <= kLargestExport);
    result += std::to_string(i) + "--> ";
    result += keyText;
    PumpOrLeave(ws);
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

int DurationCode(const MelodyNote& note, const NoteCodec& codec) {
  const std::string code = codec.EncodeDuration(note.Duration, FormatMode::IMelody).text;
  return code.empty() ? 0 : code.front() - '0';
}

}  // namespace trillomat
