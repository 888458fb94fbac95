#include "formats/imelody_file.h"

#include <array>
#include <span>
#include <vector>

#include "core/ascii.h"
#include "core/number_text.h"
#include "formats/fault_trap.h"
#include "formats/imelody_tokens.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

struct TextTag {
  std::string_view tag;
  std::string SongHeader::*field;
};
constexpr std::array<TextTag, 6> kTextTags{{{"VERSION", &SongHeader::Version},
                                            {"FORMAT", &SongHeader::Format},
                                            {"NAME", &SongHeader::Name},
                                            {"COMPOSER", &SongHeader::Composer},
                                            {"STYLE", &SongHeader::Style},
                                            {"VOLUME", &SongHeader::Volume}}};

// One line cut at its first ":".
struct TagLine {
  std::string_view tag;
  std::string_view value;
};

TagLine CutLine(std::string_view line, size_t number) {
  const size_t colon = line.find(':');
  if (colon == std::string_view::npos) {
    throw QuietFailure("line " + std::to_string(number) + " has no \":\": " + Quoted(line));
  }
  return {line.substr(0, colon), line.substr(colon + 1)};
}

void TakeField(const TagLine& line, size_t number, Workspace& ws) {
  for (const TextTag& known : kTextTags) {
    if (known.tag == line.tag) {
      ws.header.*known.field = line.value;
      return;
    }
  }
  if (line.tag == "BEAT") {
    const auto bpm = RoundToInt32(LeadingNumber(line.value));
    if (!bpm) {
      throw RunTimeFault("line " + std::to_string(number) +
                         ": the beat is out of range: " + Quoted(line.value));
    }
    ws.header.BPM = *bpm;
  } else if (line.tag != "END") {
    ws.log.WriteLog("Found an other tag - unknown-->" + std::string(line.tag), 1);
  }
}

// Reads the melody that starts with `value` and goes on in `following`; gives how many lines of those
// it took, up to the one that holds "END".
size_t TakeMelody(std::string_view value, std::span<const std::string_view> following, Workspace& ws) {
  std::string joined(value);
  for (size_t taken = 0; taken < following.size(); ++taken) {
    if (Contains(following[taken], "END")) {
      ws.ImportMelody.clear();
      AppendIMelodyTokens(joined, ws);
      return taken;
    }
    joined += following[taken];
  }
  throw RunTimeFault("no END line follows the MELODY line");
}

void Parse(std::string_view bytes, Workspace& ws) {
  const std::vector<std::string_view> lines = SplitLines(bytes);
  if (lines.empty()) throw RunTimeFault("the file is empty");
  for (size_t next = 0; next < lines.size();) {
    const TagLine line = CutLine(lines[next], next + 1);
    ++next;
    if (line.tag == "MELODY") {
      next += TakeMelody(line.value, std::span(lines).subspan(next), ws);
    } else {
      TakeField(line, next, ws);
    }
  }
}

// The element as the file has it: octave 4 is the format's default and is left out.
std::string FileToken(MelodyNote& note, const NoteCodec& codec) {
  if (!note.Special.empty()) return note.Special;
  std::string token = codec.EncodeNote(note, FormatMode::IMelody);
  if (note.Octave == 4 && !Contains(token, "r")) token.erase(0, 2);
  return token;
}

}  // namespace

bool bReadFile_IMelody(const std::filesystem::path& file, Workspace& ws) {
  return ReadTrapped("bReadFile_IMelody", ws, [&] { Parse(ReadBytes(file), ws); });
}

bool ReadText_IMelody(std::string_view bytes, Workspace& ws) {
  return ReadTrapped("bReadFile_IMelody", ws, [&] { Parse(bytes, ws); });
}

bool bSaveFile_IMelody(const std::filesystem::path& file, Workspace& ws) {
  return RunTrapped("bSaveFile_IMelody", ws, [&] { AppendText(file, WriteText_IMelody(ws)); });
}

std::string WriteText_IMelody(Workspace& ws) {
  constexpr size_t kWrapBehind = 60;
  const SongHeader& header = ws.header;
  std::string text = "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:" + header.Name +
                     "\r\nCOMPOSER:" + header.Composer + "\r\nBEAT:" + DecimalText(header.BPM) +
                     "\r\nSTYLE:" + header.Style + "\r\nVOLUME:" + header.Volume + "\r\nMELODY:";
  size_t length = 0;  // of the physical line; "MELODY:" does not count, a continued line's blank does
  for (MelodyNote& note : ws.ExportMelody) {
    const std::string token = FileToken(note, ws.codec);
    text += token;
    length += token.size();
    if (length > kWrapBehind) {
      text += "\r\n ";
      length = 1;
    }
    if (!ws.pump.PumpEvents()) return {};
  }
  return text + "\r\nEND:IMELODY\r\n";
}

}  // namespace trillomat
