#include "formats/rtttl_file.h"

#include "core/ascii.h"
#include "core/number_text.h"
#include "formats/fault_trap.h"
#include "formats/rtttl_header.h"
#include "formats/rtttl_text.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

// The repeat end of a song that is played `loop` times; 15 and more stand for "without end".
MelodyNote RepeatEnd(int16_t loop) {
  constexpr int16_t kEndless = 15;
  return CommandNote(loop >= kEndless ? "@0)" : "@" + DecimalText(loop) + ")");
}

void AppendNotes(std::string_view notes, Workspace& ws) {
  const int16_t loop = ws.header.Loop;
  if (loop != 0) ws.ImportMelody.push_back(CommandNote("("));
  AppendRtttlTokens(notes, ws);
  if (loop != 0) {
    ws.log.WriteLog("Adding the repeat.....", 1);
    ws.ImportMelody.push_back(RepeatEnd(loop));
  }
  if (ws.ImportMelody.empty()) throw RunTimeFault("the text holds no notes");
}

void Parse(std::string_view bytes, Workspace& ws) {
  std::string text = JoinLines(bytes);
  if (text.size() < 5) throw QuietFailure("the file holds fewer than 5 characters");
  text = WithoutLayout(text);
  const RtttlParts parts = SplitRtttl(text);
  GetDefaultRTTTL(parts.header, ws);
  TakeRtttlHeader(ws);
  AppendNotes(parts.notes, ws);
}

}  // namespace

bool bReadFile_RTTTL(const std::filesystem::path& file, Workspace& ws) {
  return ReadTrapped("bReadFile_RTTTL", ws, [&] { Parse(ReadBytes(file), ws); });
}

bool ReadText_RTTTL(std::string_view bytes, Workspace& ws) {
  return ReadTrapped("bReadFile_RTTTL", ws, [&] { Parse(bytes, ws); });
}

bool bSaveFile_RTTTL(const std::filesystem::path& file, Workspace& ws) {
  return RunTrapped("bSaveFile_RTTTL", ws, [&] { AppendText(file, WriteText_RTTTL(ws)); });
}

std::string WriteText_RTTTL(Workspace& ws) { return BuildRtttlText(ws) + "\r\n"; }

}  // namespace trillomat
