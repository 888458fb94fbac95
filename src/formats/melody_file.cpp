#include "formats/melody_file.h"

#include "formats/fault_trap.h"
#include "formats/letter_tokens.h"
#include "formats/supported_token.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

void Parse(std::string_view bytes, Workspace& ws) {
  const std::string text = JoinLines(bytes);
  if (text.size() < 2) throw QuietFailure("the file holds fewer than 2 characters");
  SetUnknownSong(ws.header);
  AppendLetterTokens(text, FormatMode::Melody, ws);
}

}  // namespace

bool bReadFile_Melody(const std::filesystem::path& file, Workspace& ws) {
  return ReadTrapped("bReadFile_Melody", ws, [&] { Parse(ReadBytes(file), ws); });
}

bool ReadText_Melody(std::string_view bytes, Workspace& ws) {
  return ReadTrapped("bReadFile_Melody", ws, [&] { Parse(bytes, ws); });
}

bool bSaveFile_Melody(const std::filesystem::path& file, Workspace& ws) {
  return RunTrapped("bSaveFile_Melody", ws, [&] { AppendText(file, WriteText_Melody(ws)); });
}

std::string WriteText_Melody(Workspace& ws) {
  std::string text;
  for (MelodyNote& note : ws.ExportMelody) {
    text += SupportedToken(note, FormatMode::Melody, ws.codec);
    if (!ws.pump.PumpEvents()) return {};
  }
  return text + "\r\n";
}

}  // namespace trillomat
