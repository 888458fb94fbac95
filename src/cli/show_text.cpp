#include "cli/show_text.h"

#include <algorithm>

#include "core/code_page.h"
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

std::string HeaderText(const Workspace& ws) {
  std::string text;
  AddInformation(text, "Mode", LimitsOf(ws.iNoteMode).caption);
  AddInformation(text, "Name", ws.header.Name);
  AddInformation(text, "Composer", ws.header.Composer);
  AddInformation(text, "B P M", std::to_string(ws.header.BPM));
  AddInformation(text, "Style", ws.header.Style);
  AddInformation(text, "Volume", ws.header.Volume);
  AddInformation(text, "Version", ws.header.Version);
  AddInformation(text, "Format", ws.header.Format);
  AddInformation(text, "Repeat", std::to_string(ws.header.Loop));
  AddInformation(text, "Elements", std::to_string(ws.melody.Elements().size()));
  return text;
}

}  // namespace

std::string FullToken(Workspace& ws, MelodyNote note) {
  ws.codec.defaults = {.octave = kNoOctave, .duration = -1.0F};
  return ws.codec.EncodeNote(note, ws.iNoteMode);
}

std::string ShowText(Workspace& ws) {
  std::string text = HeaderText(ws);
  if (ws.melody.Elements().empty()) return text;
  text += "\nindex   octave  note  beats   extra      special  token\n";
  for (size_t i = 0; i < ws.melody.Elements().size(); ++i) {
    const MelodyNote& note = ws.melody.Elements()[i];
    text += Column(std::to_string(i), 8);
    text += Column(note.Octave == kNoOctave ? "-" : std::to_string(note.Octave), 8);
    text += Column(note.Note.empty() ? "-" : Printable(note.Note), 6);
    text += Column(FloatText(note.Duration), 8);
    text += Column(FloatText(note.DurationExtra), 11);
    text += Column(note.Special.empty() ? "-" : Printable(note.Special), 9);
    text += Printable(FullToken(ws, note)) + '\n';
  }
  return text;
}

}  // namespace trillomat
