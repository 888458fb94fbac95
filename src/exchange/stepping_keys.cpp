#include "exchange/stepping_keys.h"

#include <cstdlib>

#include "core/codec.h"
#include "core/noticing_log.h"

namespace trillomat {

SteppingComposer::OftenPressed SteppingComposer::Often(std::string_view key) {
  std::string keys;
  while (OftenPressed::Holds(keys + std::string(key))) keys += key;
  return OftenPressed(keys);
}

void SteppingComposer::StepOctave(int target, TextWriter& text) {
  if (target < keys_.lowestOctave || target > keys_.highestOctave) return;
  const int up = target - octave_;
  const int steps = up < 0 ? up + keys_.highestOctave - keys_.lowestOctave + 1 : up;
  text.AddFront(octaveUp_, static_cast<size_t>(steps) * keys_.octaveUp.size());
  octave_ = target;
}

void SteppingComposer::StepLength(int code, TextWriter& text) {
  if (code == kAsItIs) return;
  const int shorter = code - duration_;
  const bool isLonger = shorter < 0;
  const size_t size = (isLonger ? keys_.longer : keys_.shorter).size();
  text.AddFront(isLonger ? longer_ : shorter_, static_cast<size_t>(std::abs(shorter)) * size);
  duration_ = code;
}

Loss SteppingKeys::Press(const Element& element, TextPart before, TextWriter& text) {
  const Known* const known = known_.Find(element);
  if (known == nullptr) return PressFirst(element, before, text);
  text.Add(known->before);
  composer_.StepOctave(known->octave, text);
  composer_.StepLength(known->length, text);
  text.Add(known->after);
  return known->loss;
}

ElementKeys SteppingKeys::KeysOf(const Element& element, Log& log) const {
  ElementKeys keys = IsPause(element)            ? PauseKeys(element, log)
                     : element.Command().empty() ? ToneKeys(element, log)
                                                 : CommandKeys(element.Command());
  keys.after += kLineEnd;
  return keys;
}

Loss SteppingKeys::PressFirst(const Element& element, TextPart before, TextWriter& text) {
  NoticingLog noticing(log_);
  const ElementKeys keys = KeysOf(OctavesUp(element, octavesUp_), noticing);
  if (!noticing.Noticed() && !keys.again && decltype(Known::before)::Holds(keys.before) &&
      decltype(Known::after)::Holds(keys.after)) {
    known_.Keep(element, {decltype(Known::before)(keys.before), decltype(Known::after)(keys.after),
                          static_cast<int16_t>(keys.octave), static_cast<int8_t>(keys.length), keys.loss});
  }
  text.Add(keys.before);
  if (keys.again) text.AddAgain(before.begin, before.size);
  composer_.StepOctave(keys.octave, text);
  composer_.StepLength(keys.length, text);
  text.Add(keys.after);
  return keys.loss;
}

int DurationCode(const Element& element, Log& log) {
  const std::string code = EncodeDuration(element.duration, FormatMode::IMelody, log).text;
  return code.empty() ? 0 : code.front() - '0';
}

}  // namespace trillomat
