#include "formats/rtttl_text.h"

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

std::string RtttlText(const Song& song, RtttlSpelling spelling, Log& log) {
  const TokenDefaults defaults = DefaultsCount(song.elements).CommonestForHeader();
  std::string text = Header(song.info, spelling, defaults, log);
  for (const Element& element : song.elements) {
    const std::string token = RtttlToken(element, spelling, defaults, log);
    if (!token.empty()) text += token + ",";
  }
  text.pop_back();
  return text;
}

std::string RtttlFile(const Song& song, RtttlSpelling spelling, Log& log) {
  return RtttlText(song, spelling, log) + "\r\n";
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
