#include "cli/show_text.h"

#include <algorithm>

#include "core/code_page.h"
#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

// Text from a file may hold anything; control characters must not reach the terminal.
std::string Printable(std::string_view codePageText) {
  std::string text(codePageText);
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
  return ToUtf8(text);
}

std::string Column(std::string text, size_t width) {
  text.resize(std::max(text.size() + 1, width), ' ');
  return text;
}

void AddInformation(std::string& text, std::string_view label, std::string_view value) {
  text += Column(std::string(label), 10);
  text += Printable(value);
  text += '\n';
}

std::string HeaderText(const Song& song, FormatMode mode) {
  std::string text;
  AddInformation(text, "Mode", LimitsOf(mode).caption);
  AddInformation(text, "Name", song.info.name);
  AddInformation(text, "Composer", song.info.composer);
  AddInformation(text, "B P M", std::to_string(song.info.bpm));
  AddInformation(text, "Style", song.info.style);
  AddInformation(text, "Volume", song.info.volume);
  AddInformation(text, "Version", song.info.version);
  AddInformation(text, "Format", song.info.format);
  AddInformation(text, "Repeat", std::to_string(song.info.loop));
  AddInformation(text, "Elements", std::to_string(song.elements.size()));
  return text;
}

std::string ColumnOrDash(std::string_view text, size_t width) {
  return Column(text.empty() ? "-" : Printable(text), width);
}

}  // namespace

std::string ShowText(const Song& song, FormatMode mode, const Services& services) {
  std::string text = HeaderText(song, mode);
  if (song.elements.empty()) return text;
  text += "\nindex   octave  note  beats   extra      special  token\n";
  for (size_t i = 0; i < song.elements.size(); ++i) {
    const Element& element = song.elements[i];
    text += Column(std::to_string(i), 8);
    text += ColumnOrDash(element.octave == kNoOctave ? "" : std::to_string(element.octave), 8);
    text += ColumnOrDash(element.Note(), 6);
    text += Column(FloatText(element.duration), 8);
    text += Column(FloatText(element.extra), 11);
    text += ColumnOrDash(element.Command(), 9);
    text += Printable(Encode(element, mode, kNoTokenDefaults, services.log).text) + '\n';
    services.pump.PumpEvents();
  }
  return text;
}

}  // namespace trillomat
