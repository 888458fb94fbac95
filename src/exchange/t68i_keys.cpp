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

struct CommandKeyRow {
  std::string_view special;
  std::string_view keys;
};

constexpr std::array<CommandKeyRow, 9> kCommandKeys{{{"ledon", "Option key, 2, 2"},
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

std::string_view ExtraKeys(float extra) {
  const FieldText mark = EncodeDurationExtra(extra, FormatMode::Rtttl);
  switch (mark.text.empty() ? ' ' : mark.text.front()) {
    case '.': return "Down Yes";
    case ':': return "Down Down Yes";
    case ';': return "Down Down Down Yes";
    default: return "";
  }
}

void AddLength(ElementKeys& keys, const Element& element, Log& log) {
  keys.length = DurationCode(element, log);
  if (element.extra == 1.0F) return;
  const std::string_view extra = ExtraKeys(element.extra);
  keys.after = "OptionKey 6";
  keys.after += extra;
  if (extra.empty()) keys.loss = Loss::Extra;
}

}  // namespace

T68iKeys::T68iKeys(const MelodyToType& melody, Log& log)
    : SteppingKeys({.octaveUp = "0", .longer = "9", .shorter = "8", .lowestOctave = 4, .highestOctave = 7},
                   melody, log) {}

ElementKeys T68iKeys::PauseKeys(const Element& element, Log& log) const {
  ElementKeys keys{.before = "Press: *"};
  AddLength(keys, element, log);
  return keys;
}

ElementKeys T68iKeys::ToneKeys(const Element& element, Log& log) const {
  ElementKeys keys{.before = "Press: "};
  const int tone = ToneIndex(element.Note());
  if (tone >= 0) {
    keys.before += kToneKeys.at(static_cast<size_t>(tone));
  } else {
    log.WriteLog("Critical error in Make T68i Keypress", 1);
    keys.again = true;
  }
  // A tone without an octave has the text "*4".
  keys.octave = EncodeOctave(element.octave, FormatMode::IMelody).text.at(1) - '0';
  AddLength(keys, element, log);
  if (tone < 0) keys.loss = Loss::NotUnderstood;
  return keys;
}

// A command that the phone does not have leaves the text of the element before.
ElementKeys T68iKeys::CommandKeys(std::string_view command) const {
  for (const CommandKeyRow& known : kCommandKeys) {
    if (known.special == command) return {.before = std::string(known.keys)};
  }
  if (Contains(command, ")")) return {.before = RepeatKeys(command)};
  if (Contains(command, "V")) return {.before = VolumeKeys(command)};
  return {.before = "", .again = true, .loss = Loss::Command};
}

}  // namespace trillomat
