#include <array>
#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "composer/change_scale.h"
#include "composer/song_info.h"
#include "core/code_page.h"
#include "exchange/export_targets.h"
#include "exchange/import_dialog.h"

namespace trillomat {
namespace {

// A pasted text as the program's own: UTF-8, with or without its mark, or else Windows-1252.
std::string PastedText(std::string bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (auto text = FromUtf8(bytes.starts_with(kByteOrderMark) ? std::string_view(bytes).substr(3) : bytes)) {
    return *std::move(text);
  }
  return bytes;
}

// The option of the import window that `from` names.
std::array<bool, kImportOptions.size()> OptionOf(std::string_view from) {
  return {from == "rtttl", from == "emelody", from == "melody", false, false};
}

}  // namespace

void ConvertCommand(Workspace& ws, const Invocation& call) {
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  std::error_code error;
  if (!call.force && !IsStandardStream(call.out) && std::filesystem::exists(call.out, error)) {
    throw Refused(Utf8OfPath(call.out) + " exists already; --force replaces it");
  }
  LoadMelody(ws, call.in, from);
  SaveMelody(ws, call.out, to);
}

void ImportCommand(Workspace& ws, const Invocation& call) {
  const FormatMode to = FormatOfPath(call.out, call.mode);
  const std::string source = PastedText(ReadInput(call.in));
  ImportDialog dialog(ws);
  dialog.Load();
  if (!dialog.Import(OptionOf(call.from), source, call.adaptT68i)) {
    throw Refused(Utf8OfPath(call.in) + ": " + ToUtf8(ws.refusal));
  }
  if (!ws.refusal.empty()) std::cerr << "trillomat-cli: not adapted: " << ToUtf8(ws.refusal) << '\n';
  ws.melody.Assign(std::exchange(ws.ImportMelody, {}));
  PassThroughPanel(ws.header);
  SaveMelody(ws, call.out, to);
}

void ExportCommand(Workspace& ws, const Invocation& call) {
  LoadMelody(ws, call.in, FormatOfPath(call.in, call.mode));
  if (ws.melody.IsEmpty()) {
    ws.log.WriteLog("Nothing to export", 2);
    throw Refused(Utf8OfPath(call.in) + ": the melody has no elements");
  }
  ws.ExportMelody = ws.melody.Elements();
  const auto text = ExportText(PhoneOfOption(call.to).value(), ws);
  if (!text) throw Refused(Utf8OfPath(call.in) + ": " + ToUtf8(ws.refusal));
  WriteOutput("-", *text);
}

void TransposeCommand(Workspace& ws, const Invocation& call) {
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  LoadMelody(ws, call.in, from);
  MelodyList moved = ws.melody.Elements();
  if (!moved.empty() && !ChangeScale(moved, call.octaves, from, ws.log)) {
    throw Refused(Utf8OfPath(call.in) + ": not moved, and nothing written");
  }
  ws.melody.Assign(std::move(moved));
  SaveMelody(ws, call.out, to);
}

}  // namespace trillomat
