#include "exchange/reads_whole.h"

#include <string>

#include "core/silent_services.h"
#include "formats/formats.h"

namespace trillomat {

bool ReadsWhole(std::string_view text, FormatMode mode) {
  SilentServices silent;
  const ReadResult read = Read(text, mode, {}, silent.services);
  return read && read.notUnderstood.count == 0;
}

bool NotesReadWhole(std::string_view notes, FormatMode mode) {
  if (mode == FormatMode::Melody) return ReadsWhole(notes, mode);
  // An iMelody file ends with any line that holds "END", so these lines do for both.
  return ReadsWhole("MELODY:" + std::string(notes) + "\r\nEND:EMELODY\r\n", mode);
}

}  // namespace trillomat
