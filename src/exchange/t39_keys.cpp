#include "exchange/t39_keys.h"

#include <algorithm>
#include <array>

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

}  // namespace

void HeldKeys::Press(const Element& element, std::string& keyText) {
  if (IsPause(element)) {
    keyText = PauseText(element);
  } else if (IsCommand(element.Command())) {
    keyText = "Not supported";
  } else {
    PressTone(element, keyText);
  }
  keyText += kLineEnd;
}

std::string HeldKeys::LengthCode(const Element& element) const {
  return EncodeDuration(element.duration, FormatMode::EMelody, log_).text;
}

void HeldKeys::PressTone(const Element& element, std::string& keyText) {
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    const ToneKey& found = kToneKeys.at(static_cast<size_t>(tone));
    key_ = found.key;
    modifier_ = found.accidental;
  } else {
    log_.WriteLog(UnknownToneMessage(), 1);
  }
  AppendKeys(modifier_, "0", OctavePresses(element.octave));
  keyText = ToneText(key_, LengthCode(element));
  if (!modifier_.empty()) keyText += " Then press: " + modifier_;
}

std::string T39Keys::PauseText(const Element& element) const {
  const std::string code = LengthCode(element);
  if (code == "0") return Hold("*", "P. is shown");
  if (code == "1") return Hold("*", "P is shown");
  return code == "2" ? Hold("*", "p. is shown") : Once("*");
}

bool T39Keys::IsCommand(std::string_view special) const {
  return HasCommand(special) || Contains(special, "V");
}

std::string T39Keys::ToneText(std::string_view key, std::string_view lengthCode) const {
  if (lengthCode == "0") return Hold(key, R"(uppercase with a ".")");
  if (lengthCode == "1") return Hold(key, "uppercase.");
  return lengthCode == "2" ? Hold(key, R"(lowercase with a ".")") : Once(key);
}

std::string R320Keys::PauseText(const Element& /*element*/) const { return Once("*"); }

// An absolute volume is no command here: it takes the way of a tone without a key.
bool R320Keys::IsCommand(std::string_view special) const { return HasCommand(special); }

std::string R320Keys::ToneText(std::string_view key, std::string_view lengthCode) const {
  if (lengthCode == "2") return Hold(key, "uppercase.");
  return lengthCode == "3" ? Once(key) : "Not supported";
}

}  // namespace trillomat
