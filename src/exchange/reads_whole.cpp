#include "exchange/reads_whole.h"

#include <string>

#include "exchange/idle_pump.h"
#include "formats/formats.h"

namespace trillomat {

bool ReadsWhole(std::string_view text, FormatMode mode) {
  SilentLog silent;
  IdlePump pump;
  const ReadResult read = Read(text, mode, {}, {silent, pump});
  return read && read.notUnderstood.count == 0;
}

bool NotesReadWhole(std::string_view notes, FormatMode mode) {
  if (mode == FormatMode::Melody) return ReadsWhole(notes, mode);
  return ReadsWhole("MELODY:" + std::string(notes) + "\r\nEND:EMELODY\r\n", mode);
}

}  // namespace trillomat
