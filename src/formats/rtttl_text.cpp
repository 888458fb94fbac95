#include "formats/rtttl_text.h"

#include "core/number_text.h"
#include "formats/supported_token.h"

namespace trillomat {

std::string BuildRtttlText(Workspace& ws) {
  constexpr size_t kLongestName = 10;
  ws.codec.defaults = ComputeRtttlHeaderDefaults(ws.ExportMelody);
  const MelodyDefaults& defaults = ws.codec.defaults;
  std::string text = ws.header.Name.substr(0, kLongestName);
  text += ":d=" + ws.codec.EncodeDuration(defaults.duration, FormatMode::Rtttl).text;
  text += ",o=" + DecimalText(defaults.octave + 2);
  text += ",b=" + DecimalText(ws.header.BPM);
  if (ws.header.Loop != 0) text += ",l=" + DecimalText(ws.header.Loop);
  text += ':';
  for (MelodyNote& note : ws.ExportMelody) {
    const std::string token = SupportedToken(note, FormatMode::Rtttl, ws.codec);
    if (!token.empty()) text += token + ",";
  }
  text.pop_back();
  return text;
}

}  // namespace trillomat
