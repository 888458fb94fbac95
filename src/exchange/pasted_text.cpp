#include "exchange/pasted_text.h"

#include <utility>

#include "exchange/import.h"

namespace trillomat {

ReadResult ReadPasted(std::string_view text, FormatMode mode, const Services& services) {
  ReadResult read = Read(text, mode, {}, services);
  if (read) return read;
  for (const PastedFormat format : {PastedFormat::Rtttl, PastedFormat::EMelody, PastedFormat::Melody}) {
    Imported imported = Import(format, text, false, {}, services);
    if (imported.read) return std::move(imported.read);
  }
  return read;
}

}  // namespace trillomat
