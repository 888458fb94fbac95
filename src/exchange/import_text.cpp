#include "exchange/import_text.h"

#include <string>

#include "core/ascii.h"
#include "formats/fault_trap.h"
#include "formats/letter_tokens.h"
#include "formats/rtttl_header.h"

namespace trillomat {
namespace {

constexpr std::string_view kMelodyStart = "MELODY:";
constexpr std::string_view kMelodyEnd = "END:EMELODY";

// What stands between the markers, or everything when there is no start.
std::string_view EMelodyNotes(std::string_view text) {
  const size_t start = text.find(kMelodyStart);
  if (start == std::string_view::npos) return text;
  text.remove_prefix(start + kMelodyStart.size());
  const size_t end = text.find(kMelodyEnd);
  if (end == std::string_view::npos) {
    throw RunTimeFault("there is no " + Quoted(kMelodyEnd) + " behind " + Quoted(kMelodyStart));
  }
  return text.substr(0, end);
}

}  // namespace

bool Convert_RTTTL(std::string_view source, Workspace& ws) {
  return ReadTrapped("Convert_RTTTL", ws, [&] {
    const std::string text = WithoutLayout(source);
    const RtttlParts parts = SplitRtttl(text);
    GetDefaultRTTTL(parts.header, ws);
    TakeRtttlHeader(ws);
    AppendRtttlTokens(parts.notes, ws);
    if (ws.ImportMelody.empty()) throw RunTimeFault("there is no note behind the second \":\"");
  });
}

bool bConvert_EMelody(std::string_view source, Workspace& ws) {
  return ReadTrapped("bConvert_EMelody", ws, [&] {
    SetUnknownSong(ws.header);
    const std::string text = WithoutLayout(source);
    AppendLetterTokens(EMelodyNotes(text), FormatMode::EMelody, ws);
  });
}

bool bConvert_Melody(std::string_view source, Workspace& ws) {
  return ReadTrapped("bConvert_Melody", ws, [&] {
    SetUnknownSong(ws.header);
    AppendLetterTokens(source, FormatMode::Melody, ws);
  });
}

}  // namespace trillomat
