#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/melody_source.h"
#include "cli/show_text.h"

namespace trillomat {

void ShowCommand(const Invocation& call, const CommandServices& services) {
  const auto [song, mode, reported] = LoadSong(call, services, Losses::Shown);
  services.Begin("showing", call.in, song.elements.size());
  WriteOutput("-", services.store,
              call.json ? ShowJson(song, mode, services) : ShowText(song, mode, services));
}

}  // namespace trillomat
