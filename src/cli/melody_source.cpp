#include "cli/melody_source.h"

#include <utility>

#include "cli/byte_files.h"
#include "cli/failure.h"
#include "composer/song_info.h"
#include "core/code_page.h"
#include "formats/format_table.h"

namespace trillomat {

FormatMode FormatOfPath(const std::filesystem::path& file, std::optional<FormatMode> told) {
  std::string extension = Utf8OfPath(file.extension());
  if (!extension.empty()) extension.erase(0, 1);
  if (const auto mode = ModeOfExtension(extension)) return *mode;
  if (told) return *told;
  if (IsStandardStream(file)) throw WrongUsage("\"-\" needs --mode imelody, emelody, rtttl or melody");
  throw WrongUsage(
      Utf8OfPath(file) +
      ": its name should end in .imy, .emy, .rtx or .mel; for another name, tell its format with "
      "--mode imelody, emelody, rtttl or melody");
}

void LoadMelody(Workspace& ws, const std::filesystem::path& file, FormatMode mode) {
  ws.iNoteMode = mode;
  const FormatEntry& format = FormatOf(mode);
  const bool read =
      IsStandardStream(file) ? format.ReadText(ReadInput(file), ws) : format.bReadFile(file, ws);
  if (!read) throw Refused(Utf8OfPath(file) + ": " + ToUtf8(ws.refusal));
  ws.melody.Assign(std::exchange(ws.ImportMelody, {}));
  ws.melody.lCurrentIndex = -1;
  PassThroughPanel(ws.header);
}

void SaveMelody(Workspace& ws, const std::filesystem::path& file, FormatMode mode) {
  ws.iNoteMode = mode;
  ws.ExportMelody = ws.melody.Elements();
  WriteOutput(file, FormatOf(mode).WriteText(ws));
}

}  // namespace trillomat
