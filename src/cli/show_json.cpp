#include <array>
#include <cstdio>

#include "cli/show_text.h"
#include "core/code_page.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

std::string JsonString(std::string_view codePageText) {
  std::string json = "\"";
  for (const char c : ToUtf8(codePageText)) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < ' ') {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      json += escape.data();
    } else {
      json += c;
    }
  }
  return json + '"';
}

void AddMember(std::string& json, std::string_view name, std::string_view value) {
  if (json.back() != '{') json += ", ";
  json += '"';
  json += name;
  json += "\": ";
  json += value;
}

std::string HeaderJson(const SongHeader& header) {
  std::string json = "{";
  AddMember(json, "name", JsonString(header.Name));
  AddMember(json, "composer", JsonString(header.Composer));
  AddMember(json, "bpm", std::to_string(header.BPM));
  AddMember(json, "style", JsonString(header.Style));
  AddMember(json, "volume", JsonString(header.Volume));
  AddMember(json, "version", JsonString(header.Version));
  AddMember(json, "format", JsonString(header.Format));
  AddMember(json, "loop", std::to_string(header.Loop));
  return json + '}';
}

std::string ElementJson(const MelodyNote& note, std::string_view token) {
  std::string json = "{";
  AddMember(json, "octave", std::to_string(note.Octave));
  AddMember(json, "note", JsonString(note.Note));
  AddMember(json, "special", JsonString(note.Special));
  AddMember(json, "duration", FloatText(note.Duration));
  AddMember(json, "extra", FloatText(note.DurationExtra));
  AddMember(json, "token", JsonString(token));
  return json + '}';
}

}  // namespace

std::string ShowJson(Workspace& ws) {
  std::string json = "{\"header\": " + HeaderJson(ws.header) + ",\n \"elements\": [";
  std::string_view separator = "\n  ";
  for (const MelodyNote& note : ws.melody.Elements()) {
    json += separator;
    json += ElementJson(note, FullToken(ws, note));
    separator = ",\n  ";
  }
  return json + "]}\n";
}

}  // namespace trillomat
