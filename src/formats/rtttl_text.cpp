#include "formats/rtttl_text.h"

#include "core/element_texts.h"
#include "core/number_text.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

std::string_view WrittenName(const SongInfo& info) {
  constexpr size_t kLongestName = 10;
  return std::string_view(info.name).substr(0, kLongestName);
}

std::string_view NameReadBack(const SongInfo& info) {
  const std::string_view name = WrittenName(info);
  return name.substr(0, name.find(':'));
}

// Players divide by the tempo, so one of 0 is written as the one that it is played at.
std::string Header(const SongInfo& info, RtttlSpelling spelling, const TokenDefaults& defaults, Log& log) {
  const bool modern = spelling == RtttlSpelling::Modern;
  std::string text(modern ? NameReadBack(info) : WrittenName(info));
  text += ":d=" + EncodeDuration(defaults.duration, FormatMode::Rtttl, log).text;
  text += ",o=" + DecimalText(defaults.octave + 2);
  text += ",b=" + DecimalText(modern && info.bpm == 0 ? kDefaultTempo : info.bpm);
  if (info.loop != 0 && !modern) text += ",l=" + DecimalText(info.loop);
  return text + ':';
}

}  // namespace

std::string RtttlText(const Song& song, int octaves, RtttlSpelling spelling, Log& log) {
  const TokenDefaults defaults = DefaultsCount(song.elements, octaves).CommonestForHeader();
  constexpr size_t kTypicalToken = 6;  // with its comma
  TextWriter text(song.elements.size() * kTypicalToken);
  text.Add(Header(song.info, spelling, defaults, log));
  const auto make = [&](const Element& element, Log& heard) {
    std::string token = RtttlToken(OctavesUp(element, octaves), spelling, defaults, heard);
    if (!token.empty()) token += ',';
    return token;
  };
  ElementTexts tokens(song.elements.size(), make, log);
  for (const Element& element : song.elements) tokens.Write(element, text);
  std::string whole = text.Take();
  whole.pop_back();
  return whole;
}

std::string RtttlFile(const Song& song, RtttlSpelling spelling, Log& log) {
  std::string text = RtttlText(song, 0, spelling, log);
  text += "\r\n";
  return text;
}

std::string RtttlNameWarning(const SongInfo& info, RtttlSpelling spelling) {
  const std::string_view name = NameReadBack(info);
  if (name.size() == WrittenName(info).size()) return {};
  std::string warning = "the name " + Quoted(info.name) + " holds \":\", which ends a name in RTTTL: ";
  warning += name.empty() ? "it will be read back without a name" : "it will be read back as " + Quoted(name);
  if (spelling == RtttlSpelling::Classic) warning += ", and what follows the \":\" not as it is meant";
  return warning;
}

}  // namespace trillomat
