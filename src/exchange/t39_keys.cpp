#include "exchange/t39_keys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/noticing_log.h"
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

Loss HeldKeys::Press(const Element& element, TextPart /*before*/, TextWriter& text) {
  const Known* const known = known_.Find(element);
  if (known == nullptr) return PressFirst(element, text);
  text.Add(known->text);
  if (known->tone >= 0) last_ = {known->tone, known->octaveKeys};
  return known->loss;
}

Loss HeldKeys::PressFirst(const Element& element, TextWriter& text) {
  NoticingLog noticing(log_);
  const Typed typed = Type(OctavesUp(element, octavesUp_), noticing);
  if (!noticing.Noticed() && decltype(Known::text)::Holds(typed.text)) {
    known_.Keep(element, {decltype(Known::text)(typed.text), static_cast<int8_t>(typed.tone),
                          static_cast<uint8_t>(last_.octaveKeys), typed.loss});
  }
  text.Add(typed.text);
  return typed.loss;
}

HeldKeys::Typed HeldKeys::Type(const Element& element, Log& log) {
  Typed typed{.loss = Loss::Command};
  if (IsPause(element)) {
    Keys keys = PauseKeys(element, log);
    typed = {.text = std::move(keys.text), .loss = LossOf(element, keys.saysLength)};
  } else if (IsCommand(element.Command())) {
    typed.text = "Not supported";
  } else {
    typed = TypeTone(element, log);
  }
  typed.text += kLineEnd;
  return typed;
}

FieldText HeldKeys::LengthCode(const Element& element, Log& log) {
  return EncodeDuration(element.duration, FormatMode::EMelody, log);
}

HeldKeys::Typed HeldKeys::TypeTone(const Element& element, Log& log) {
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    last_ = {.tone = tone};
  } else {
    log.WriteLog(UnknownToneMessage(), 1);
  }
  const auto [key, accidental] = last_.tone < 0 ? ToneKey() : kToneKeys.at(static_cast<size_t>(last_.tone));
  std::string modifier(accidental);
  last_.octaveKeys += std::max(OctavePresses(element.octave), 0);
  AppendKeys(modifier, "0", last_.octaveKeys);
  const FieldText length = LengthCode(element, log);
  Keys keys = ToneKeys(key, length.text);
  Typed typed{.text = std::move(keys.text), .tone = tone};
  if (!modifier.empty()) typed.text += " Then press: " + modifier;
  if (!element.Command().empty()) {
    typed.loss = Loss::Command;
  } else {
    typed.loss = tone < 0 ? Loss::NotUnderstood : LossOf(element, length.supported && keys.saysLength);
  }
  return typed;
}

HeldKeys::Keys T39Keys::PauseKeys(const Element& element, Log& log) const {
  const FieldText length = LengthCode(element, log);
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
HeldKeys::Keys R320Keys::PauseKeys(const Element& element, Log& /*log*/) const {
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
