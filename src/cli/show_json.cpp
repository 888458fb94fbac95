#include <array>
#include <cstdio>

#include "cli/show_text.h"
#include "core/code_page.h"
#include "core/codec.h"
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

std::string HeaderJson(const SongInfo& info) {
  std::string json = "{";
  AddMember(json, "name", JsonString(info.name));
  AddMember(json, "composer", JsonString(info.composer));
  AddMember(json, "bpm", std::to_string(info.bpm));
  AddMember(json, "style", JsonString(info.style));
  AddMember(json, "volume", JsonString(info.volume));
  AddMember(json, "version", JsonString(info.version));
  AddMember(json, "format", JsonString(info.format));
  AddMember(json, "loop", std::to_string(info.loop));
  return json + '}';
}

std::string ElementJson(const Element& element, std::string_view token) {
  std::string json = "{";
  AddMember(json, "octave", std::to_string(element.octave));
  AddMember(json, "note", JsonString(element.Note()));
  AddMember(json, "special", JsonString(element.Command()));
  AddMember(json, "duration", FloatText(element.duration));
  AddMember(json, "extra", FloatText(element.extra));
  AddMember(json, "token", JsonString(token));
  return json + '}';
}

}  // namespace

std::string ShowJson(const Song& song, FormatMode mode, Log& log) {
  std::string json = "{\"header\": " + HeaderJson(song.info) + ",\n \"elements\": [";
  std::string_view separator = "\n  ";
  for (const Element& element : song.elements) {
    json += separator;
    json += ElementJson(element, Encode(element, mode, kNoTokenDefaults, log).text);
    separator = ",\n  ";
  }
  return json + "]}\n";
}

}  // namespace trillomat
