#include "exchange/t68i_keys.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"
#include "core/tone.h"

namespace trillomat {
namespace {

// One "#" after the digit is flat where the tone has a flat, the next one sharp.
constexpr ToneTable<std::string_view> kToneKeys{"1",  "1#", "2#",  "2",  "2##", "3#",  "3",  "4", "4#",
                                                "5#", "5",  "5##", "6#", "6",   "6##", "7#", "7"};

struct CommandKeys {
  std::string_view special;
  std::string_view keys;
};

constexpr std::array<CommandKeys, 9> kCommandKeys{{{"ledon", "Option key, 2, 2"},
                                                   {"ledoff", "Option key, 2, 1"},
                                                   {"vibeon", "Option key, 2, 6"},
                                                   {"vibeoff", "Option key, 2, 5"},
                                                   {"backon", "Option key, 2, 4"},
                                                   {"backoff", "Option key, 2, 3"},
                                                   {"V+", "Option key, 2, 9"},
                                                   {"V-", "Option key, 2, Down, Down, Left"},
                                                   {"(", "Option key, 2, 7"}}};

// A count beyond all limits becomes one that AppendKeys refuses.
int CountIn(std::string_view text) {
  const double value = LeadingNumber(text);
  return RoundToInt32(value).value_or(value < 0 ? 0 : std::numeric_limits<int>::max());
}

// The end of a repeat, "@n)": 0 is without end.
std::string RepeatKeys(std::string_view special) {
  std::string keys = "Option key, 2, 8";
  const size_t end = std::max<size_t>(special.rfind(')'), 1);
  const int count = CountIn(special.substr(1, end - 1));
  if (count == 0) keys += ", 8";
  if (count >= 2) {
    keys += ',';
    AppendKeys(keys, " 9", count - 1);
  }
  return keys;
}

// An absolute volume, "Vn".
std::string VolumeKeys(std::string_view special) {
  std::string keys = "Option key, 2, Down, Down, Left, Left";
  const int count = CountIn(special.substr(special.find('V') + 1));
  if (count != 0) {
    keys += ',';
    AppendKeys(keys, " 9", count);
  }
  return keys;
}

// A command that the phone does not have leaves the text of the element before.
Loss PressCommand(std::string_view special, std::string& keyText) {
  for (const CommandKeys& command : kCommandKeys) {
    if (command.special != special) continue;
    keyText = command.keys;
    return Loss::None;
  }
  if (Contains(special, ")")) {
    keyText = RepeatKeys(special);
  } else if (Contains(special, "V")) {
    keyText = VolumeKeys(special);
  } else {
    return Loss::Command;
  }
  return Loss::None;
}

std::string_view ExtraKeys(float extra) {
  const FieldText mark = EncodeDurationExtra(extra, FormatMode::Rtttl);
  switch (mark.text.empty() ? ' ' : mark.text.front()) {
    case '.': return "Down Yes";
    case ':': return "Down Down Yes";
    case ';': return "Down Down Down Yes";
    default: return "";
  }
}

}  // namespace

Loss T68iKeys::Press(const Element& element, std::string& keyText) {
  Loss loss = Loss::None;
  if (IsPause(element)) {
    keyText = "Press: *";
    loss = PressLength(element, keyText);
  } else if (!element.Command().empty()) {
    loss = PressCommand(element.Command(), keyText);
  } else {
    loss = PressTone(element, keyText);
  }
  keyText += kLineEnd;
  return loss;
}

Loss T68iKeys::PressTone(const Element& element, std::string& keyText) {
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    keyText = kToneKeys.at(static_cast<size_t>(tone));
  } else {
    log_.WriteLog("Critical error in Make T68i Keypress", 1);
  }
  // A tone without an octave has the text "*4".
  composer_.StepOctave(EncodeOctave(element.octave, FormatMode::IMelody).text.at(1) - '0', keyText);
  const Loss loss = PressLength(element, keyText);
  keyText.insert(0, "Press: ");
  return tone < 0 ? Loss::NotUnderstood : loss;
}

Loss T68iKeys::PressLength(const Element& element, std::string& keyText) {
  composer_.StepLength(DurationCode(element, log_), keyText);
  if (element.extra == 1.0F) return Loss::None;
  const std::string_view extra = ExtraKeys(element.extra);
  keyText += "OptionKey 6";
  keyText += extra;
  return extra.empty() ? Loss::Extra : Loss::None;
}

}  // namespace trillomat
