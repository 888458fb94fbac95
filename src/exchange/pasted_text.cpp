#include "exchange/pasted_text.h"

#include <utility>

#include "exchange/import.h"

namespace trillomat {

ReadResult ReadPasted(std::string_view text, FormatMode mode, const Services& services) {
  ReadResult read = Read(text, mode, {}, services);
  if (!read.elements.empty()) return read;
  for (const PastedFormat format : {PastedFormat::Rtttl, PastedFormat::EMelody, PastedFormat::Melody}) {
    Imported imported = Import(format, text, false, {}, services);
    if (imported.read) return std::move(imported.read);
  }
  // A file of tags alone is one without a note.
  if (read) read.refusal = Refusal{"there is no note in it"};
  return read;
}

}  // namespace trillomat
