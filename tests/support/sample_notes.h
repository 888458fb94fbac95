// Short ways to write down elements and melodies in the tests.
#pragma once

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {

/// A tone, by default a quarter in octave 4.
inline Element Note(std::string_view note, int octave = 4, float duration = 1.0F, float extra = 1.0F) {
  return Tone(note, static_cast<int16_t>(octave), duration, extra);
}

/// A pause, by default a quarter.
inline Element Rest(float duration = 1.0F, float extra = 1.0F) { return Pause(duration, extra); }

/// Quarters of c in these octaves; -1 gives a tone without one.
inline ElementList Tones(std::initializer_list<int> octaves) {
  ElementList elements;
  for (const int octave : octaves) elements.push_back(Note("c", octave));
  return elements;
}

/// The elements of I-Melody tokens with blanks between them.
inline ElementList ElementsOf(const std::string& tokens) {
  SilentLog log;
  ElementList elements;
  std::istringstream in(tokens);
  for (std::string token; in >> token;) elements.push_back(Decode(token, FormatMode::IMelody, {}, log));
  return elements;
}

/// The I-Melody tokens of elements, octaves included, with `between` between them.
inline std::string TokensOf(const ElementList& elements, std::string_view between = "") {
  SilentLog log;
  std::string text;
  for (const Element& element : elements) {
    if (!text.empty()) text += between;
    text += Encode(element, FormatMode::IMelody, {}, log).text;
  }
  return text;
}

/// "OCTAVE NOTE DURATION EXTRA" of a tone or a pause, the token of a command.
inline std::string Described(const Element& element) {
  if (element == Command(element.Command())) return std::string(element.Command());
  return std::to_string(element.octave) + " " + std::string(element.Note()) + std::string(element.Command()) +
         " " + FloatText(element.duration) + " " + FloatText(element.extra);
}

/// The same of many, with ", " between them.
inline std::string Described(const ElementList& elements) {
  std::string text;
  for (const Element& element : elements) text += (text.empty() ? "" : ", ") + Described(element);
  return text;
}

}  // namespace trillomat
