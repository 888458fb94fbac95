#include "formats/emelody_file.h"

#include "formats/fault_trap.h"
#include "formats/letter_tokens.h"
#include "formats/supported_token.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

constexpr std::string_view kStart = "MELODY:";
constexpr std::string_view kEnd = "END:EMELODY";

// What stands between the two markers.
std::string_view NotesOf(std::string_view text) {
  const size_t start = text.find(kStart);
  if (start == std::string_view::npos) throw QuietFailure("the file holds no \"MELODY:\"");
  text.remove_prefix(start + kStart.size());
  const size_t end = text.find(kEnd);
  if (end == std::string_view::npos) throw QuietFailure("no \"END:EMELODY\" follows \"MELODY:\"");
  return text.substr(0, end);
}

void Parse(std::string_view bytes, Workspace& ws) {
  const std::string text = JoinLines(bytes);
  if (text.size() < 2) throw QuietFailure("the file holds fewer than 2 characters");
  SetUnknownSong(ws.header);
  AppendLetterTokens(NotesOf(text), FormatMode::EMelody, ws);
}

}  // namespace

bool bReadFile_EMelody(const std::filesystem::path& file, Workspace& ws) {
  return ReadTrapped("bReadFile_EMelody", ws, [&] { Parse(ReadBytes(file), ws); });
}

bool ReadText_EMelody(std::string_view bytes, Workspace& ws) {
  return ReadTrapped("bReadFile_EMelody", ws, [&] { Parse(bytes, ws); });
}

bool bSaveFile_EMelody(const std::filesystem::path& file, Workspace& ws) {
  return RunTrapped("bSaveFile_EMelody", ws, [&] { AppendText(file, WriteText_EMelody(ws)); });
}

std::string WriteText_EMelody(Workspace& ws) {
  std::string text = "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:";
  for (MelodyNote& note : ws.ExportMelody) text += SupportedToken(note, FormatMode::EMelody, ws.codec);
  return text + "\r\nEND:EMELODY\r\n";
}

}  // namespace trillomat
