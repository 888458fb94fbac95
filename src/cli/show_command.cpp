#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/melody_source.h"
#include "cli/show_text.h"

namespace trillomat {

void ShowCommand(const Invocation& call, const CommandServices& services) {
  const auto [song, mode] = LoadSong(call, services);
  WriteOutput("-", services.store,
              call.json ? ShowJson(song, mode, services.log) : ShowText(song, mode, services.log));
}

}  // namespace trillomat
