#include "exchange/t39_keys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/tone.h"

namespace trillomat {
namespace {

struct ToneKey {
  std::string_view key;
  std::string_view accidental;
};

constexpr ToneTable<ToneKey> kToneKeys{{{"1", ""},
                                        {"1", "#"},
                                        {"2", "##"},
                                        {"2", ""},
                                        {"2", "#"},
                                        {"3", "#"},
                                        {"3", ""},
                                        {"4", ""},
                                        {"4", "#"},
                                        {"5", "##"},
                                        {"5", ""},
                                        {"5", "#"},
                                        {"6", "##"},
                                        {"6", ""},
                                        {"6", "#"},
                                        {"7", "#"},
                                        {"7", ""}}};

constexpr std::array<std::string_view, 10> kCommands{"ledon",   "ledoff", "vibeon", "vibeoff", "backon",
                                                     "backoff", "V+",     "V-",     "(",       ")"};

bool HasCommand(std::string_view special) {
  return std::any_of(kCommands.begin(), kCommands.end(),
                     [special](std::string_view command) { return Contains(special, command); });
}

std::string Hold(std::string_view key, std::string_view until) {
  std::string text = "Hold: ";
  text += key;
  text += " until ";
  text += until;
  return text;
}

std::string Once(std::string_view key) { return "Press: " + std::string(key); }

// Neither phone types dots and triplets.
Loss LossOf(const Element& element, bool saysLength) {
  if (!saysLength) return Loss::Length;
  return element.extra == 1.0F ? Loss::None : Loss::Extra;
}

}  // namespace

Loss HeldKeys::Press(const Element& element, std::string& keyText) {
  Loss loss = Loss::Command;
  if (IsPause(element)) {
    Keys keys = PauseKeys(element);
    keyText = std::move(keys.text);
    loss = LossOf(element, keys.saysLength);
  } else if (IsCommand(element.Command())) {
    keyText = "Not supported";
  } else {
    loss = PressTone(element, keyText);
  }
  keyText += kLineEnd;
  return loss;
}

FieldText HeldKeys::LengthCode(const Element& element, Log& log) {
  return EncodeDuration(element.duration, FormatMode::EMelody, log);
}

Loss HeldKeys::PressTone(const Element& element, std::string& keyText) {
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    const ToneKey& found = kToneKeys.at(static_cast<size_t>(tone));
    key_ = found.key;
    modifier_ = found.accidental;
  } else {
    log_.WriteLog(UnknownToneMessage(), 1);
  }
  AppendKeys(modifier_, "0", OctavePresses(element.octave));
  const FieldText length = LengthCode(element, log_);
  Keys keys = ToneKeys(key_, length.text);
  keyText = std::move(keys.text);
  if (!modifier_.empty()) keyText += " Then press: " + modifier_;
  if (!element.Command().empty()) return Loss::Command;
  return tone < 0 ? Loss::NotUnderstood : LossOf(element, length.supported && keys.saysLength);
}

HeldKeys::Keys T39Keys::PauseKeys(const Element& element) const {
  const FieldText length = LengthCode(element, EventLog());
  if (length.text == "0") return {Hold("*", "P. is shown")};
  if (length.text == "1") return {Hold("*", "P is shown")};
  if (length.text == "2") return {Hold("*", "p. is shown")};
  return {Once("*"), length.supported};
}

bool T39Keys::IsCommand(std::string_view special) const {
  return HasCommand(special) || Contains(special, "V");
}

HeldKeys::Keys T39Keys::ToneKeys(std::string_view key, std::string_view lengthCode) const {
  if (lengthCode == "0") return {Hold(key, R"(uppercase with a ".")")};
  if (lengthCode == "1") return {Hold(key, "uppercase.")};
  return {lengthCode == "2" ? Hold(key, R"(lowercase with a ".")") : Once(key)};
}

// Every pause is an eighth.
HeldKeys::Keys R320Keys::PauseKeys(const Element& element) const {
  SilentLog silent;
  const FieldText length = LengthCode(element, silent);
  return {Once("*"), length.text == "3" && length.supported};
}

// An absolute volume is no command here: it takes the way of a tone without a key.
bool R320Keys::IsCommand(std::string_view special) const { return HasCommand(special); }

HeldKeys::Keys R320Keys::ToneKeys(std::string_view key, std::string_view lengthCode) const {
  if (lengthCode == "2") return {Hold(key, "uppercase.")};
  if (lengthCode == "3") return {Once(key)};
  return {"Not supported", false};
}

}  // namespace trillomat
