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

NokiaKeys::NokiaKeys(const MelodyToType& melody, Log& log)
    : SteppingKeys({.octaveUp = " *", .longer = " 9", .shorter = " 8", .lowestOctave = 3, .highestOctave = 6},
                   melody, log) {}

ElementKeys NokiaKeys::PauseKeys(const Element& element, Log& log) const {
  ElementKeys keys{.before = "Press: 0"};
  if (IsDotted(element)) {
    keys.before = "Press and hold 0 ";
  } else if (!IsPlain(element)) {
    // Other extras cannot be typed: their line repeats the text of the element before.
    keys = {.before = "", .again = true, .loss = Loss::Extra};
  }
  keys.length = DurationCode(element, log);
  return keys;
}

ElementKeys NokiaKeys::ToneKeys(const Element& element, Log& log) const {
  const bool dotted = IsDotted(element);
  ElementKeys keys{.before = dotted ? "Press: (hold) " : "Press: ", .octave = element.octave};
  keys.length = DurationCode(element, log);
  const int tone = ToneIndex(element.Note());
  if (tone < 0) {
    log.WriteLog("Critical error in Make Nokia Keypress", 1);
    keys.again = true;
    keys.loss = Loss::NotUnderstood;
    return keys;
  }
  keys.before += kToneKeys.at(static_cast<size_t>(tone));
  if (!dotted && !IsPlain(element)) keys.loss = Loss::Extra;
  return keys;
}

ElementKeys NokiaKeys::CommandKeys(std::string_view /*command*/) const {
  return {.before = "Not supported", .loss = Loss::Command};
}

}  // namespace trillomat
