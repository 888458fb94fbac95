#include "cli/json_text.h"
#include "cli/show_text.h"
#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

std::string HeaderJson(const SongInfo& info) {
  std::string json = "{";
  AddMember(json, "name", JsonStringOfCodePage(info.name));
  AddMember(json, "composer", JsonStringOfCodePage(info.composer));
  AddMember(json, "bpm", std::to_string(info.bpm));
  AddMember(json, "style", JsonStringOfCodePage(info.style));
  AddMember(json, "volume", JsonStringOfCodePage(info.volume));
  AddMember(json, "version", JsonStringOfCodePage(info.version));
  AddMember(json, "format", JsonStringOfCodePage(info.format));
  AddMember(json, "loop", std::to_string(info.loop));
  return json + '}';
}

std::string ElementJson(const Element& element, std::string_view token) {
  std::string json = "{";
  AddMember(json, "octave", std::to_string(element.octave));
  AddMember(json, "note", JsonStringOfCodePage(element.Note()));
  AddMember(json, "special", JsonStringOfCodePage(element.Command()));
  AddMember(json, "duration", FloatText(element.duration));
  AddMember(json, "extra", FloatText(element.extra));
  AddMember(json, "token", JsonStringOfCodePage(token));
  return json + '}';
}

}  // namespace

std::string ShowJson(const Song& song, FormatMode mode, const Services& services) {
  std::string json = "{\"header\": " + HeaderJson(song.info) + ",\n \"elements\": [";
  std::string_view separator = "\n  ";
  for (const Element& element : song.elements) {
    json += separator;
    json += ElementJson(element, Encode(element, mode, kNoTokenDefaults, services.log).text);
    separator = ",\n  ";
    services.pump.PumpEvents();
  }
  return json + "]}\n";
}

}  // namespace trillomat
