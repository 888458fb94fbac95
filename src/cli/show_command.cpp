#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/melody_source.h"
#include "cli/show_text.h"

namespace trillomat {

void ShowCommand(Workspace& ws, const Invocation& call) {
  LoadMelody(ws, call.in, FormatOfPath(call.in, call.mode));
  WriteOutput("-", call.json ? ShowJson(ws) : ShowText(ws));
}

}  // namespace trillomat
