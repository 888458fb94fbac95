#include "composer/element_words.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/ascii.h"
#include "core/number_text.h"
#include "core/tone.h"
#include "playback/element_sound.h"

namespace trillomat {
namespace {

using Words = std::pair<std::string_view, std::string_view>;

constexpr std::array<Words, 10> kCommands{{{"ledon", "light on"},
                                           {"ledoff", "light off"},
                                           {"vibeon", "vibration on"},
                                           {"vibeoff", "vibration off"},
                                           {"backon", "backlight on"},
                                           {"backoff", "backlight off"},
                                           {"V+", "volume up"},
                                           {"V-", "volume down"},
                                           {"(", "repeat start"},
                                           {"@0)", "repeat without end"}}};

// In the order of kDurations and kDurationExtras.
constexpr std::array<std::string_view, kDurations.size()> kDurationNames{
    "whole", "half", "quarter", "eighth", "sixteenth", "thirty-second"};
constexpr std::array<std::string_view, kDurationExtras.size()> kExtraNames{"", "dotted ", "double dotted ",
                                                                           "triplet "};

std::string Quoted(std::string_view what, std::string_view text) {
  return std::string(what) + " \"" + std::string(text) + "\"";
}

std::string CommandWords(std::string_view command) {
  const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                         [command](const Words& words) { return words.first == command; });
  if (found != kCommands.end()) return std::string(found->second);
  if (command.starts_with('V') && IsAllDigits(command.substr(1)))
    return "volume " + std::string(command.substr(1));
  if (command.starts_with('@') && command.ends_with(')')) {
    const std::string_view count = command.substr(1, command.size() - 2);
    if (IsAllDigits(count)) return "repeat " + std::string(count) + (count == "1" ? " time" : " times");
  }
  return Quoted("command", command);
}

std::string ToneWords(const Element& element) {
  const int tone = ToneIndex(element.Note());
  if (tone < 0) return Quoted("unknown tone", element.Note());
  const std::string_view spelling = kTones.at(static_cast<size_t>(tone));
  std::string words(1, spelling.back());
  if (spelling.front() == '#') words += " sharp";
  if (spelling.front() == '&') words += " flat";
  if (element.octave != kNoOctave) words += ", octave " + std::to_string(element.octave);
  return words;
}

std::string DurationWords(const Element& element) {
  const int duration = DurationIndex(element.duration);
  const int extra = DurationExtraIndex(element.extra);
  if (duration < 0 || extra < 0) return FloatText(element.duration * element.extra) + " beats";
  return std::string(kExtraNames.at(static_cast<size_t>(extra))) +
         std::string(kDurationNames.at(static_cast<size_t>(duration)));
}

bool IsCommand(const Element& element) { return element.Note().empty() && !element.Command().empty(); }

}  // namespace

std::string ElementWords(const Element& element, int32_t bpm) {
  if (IsCommand(element)) return ElementWords(element);
  return ElementWords(element) + ", " + std::to_string(ElementLength(element, bpm)) + " ms";
}

std::string ElementWords(const Element& element) {
  if (IsCommand(element)) return CommandWords(element.Command());
  return (IsPause(element) ? "pause" : ToneWords(element)) + ", " + DurationWords(element);
}

}  // namespace trillomat
