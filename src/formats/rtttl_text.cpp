#include "formats/rtttl_text.h"

#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {

std::string RtttlText(const Song& song, Log& log) {
  constexpr size_t kLongestName = 10;
  const TokenDefaults defaults = DefaultsCount(song.elements).CommonestForHeader();
  std::string text = song.info.name.substr(0, kLongestName);
  text += ":d=" + EncodeDuration(defaults.duration, FormatMode::Rtttl, log).text;
  text += ",o=" + DecimalText(defaults.octave + 2);
  text += ",b=" + DecimalText(song.info.bpm);
  if (song.info.loop != 0) text += ",l=" + DecimalText(song.info.loop);
  text += ':';
  for (const Element& element : song.elements) {
    const std::string token = SupportedText(element, FormatMode::Rtttl, defaults, log);
    if (!token.empty()) text += token + ",";
  }
  text.pop_back();
  return text;
}

}  // namespace trillomat
