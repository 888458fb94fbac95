// Random melodies and texts to measure with: the same at every run.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/codec.h"
#include "core/format_mode.h"
#include "core/tone.h"

namespace trillomat {

/// `count` random tones and pauses, some of them dotted, within what `limits` can hold.
inline ElementList RandomElements(size_t count, const ModeLimits& limits) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::uniform_int_distribution<size_t> tone(0, kTones.size() - 1);
  std::uniform_int_distribution<int> octave(limits.lowestOctave, limits.highestOctave);
  std::uniform_int_distribution<int> duration(limits.firstDuration, limits.lastDuration);
  ElementList elements;
  elements.reserve(count);
  while (elements.size() < count) {
    const float length = kDurations.at(static_cast<size_t>(duration(random)));
    const float extra = random() % 5 == 0 ? 1.5F : 1.0F;
    const Element element = random() % 10 == 0 ? Pause(length, extra)
                                               : Tone(kTones.at(tone(random)),
                                                      static_cast<int16_t>(octave(random)), length, extra);
    if (Supports(element, limits.mode)) elements.push_back(element);
  }
  return elements;
}

/// An RTTTL tune as they are passed around: 200 bytes, some 47 notes of which 14 differ.
inline std::string RandomTune(std::mt19937& random) {
  const auto oneOf = [&random](std::string_view characters) {
    return std::string(1, characters[random() % characters.size()]);
  };
  const auto often = [&random](unsigned inTen) { return random() % 10 < inTen; };
  const auto note = [&] {
    std::string text = often(7) ? oneOf("148") : "";
    if (often(1)) text = "16";
    if (often(2)) return text + "p";
    text += oneOf("cdefgab");
    if (text.back() != 'e' && text.back() != 'b' && often(3)) text += '#';
    if (often(1)) text += '.';
    return often(4) ? text + oneOf("4567") : text;
  };
  std::vector<std::string> motif(14);
  std::generate(motif.begin(), motif.end(), note);
  std::string tune = "Tune" + std::to_string(random() % 1000) + ":d=" + oneOf("48") + ",o=" + oneOf("56") +
                     ",b=" + std::to_string(63 + random() % 200) + ':';
  for (size_t i = 23 + random() % 48; i > 0; --i) tune += motif[random() % motif.size()] + ',';
  tune.pop_back();
  return tune;
}

}  // namespace trillomat
