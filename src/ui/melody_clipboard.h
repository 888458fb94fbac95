// Elements on the system's clipboard: exactly, in a type of the program's own, and as text in the notation of
// the mode, for mails and other programs.
#pragma once

#include "core/services.h"
#include "document/document.h"
#include "formats/formats.h"

namespace trillomat {

/// The program's own type of data, whose text recovery_text.h describes.
inline constexpr const char* kElementsType = "application/x-trillomat-elements";

/// Puts `elements` on the clipboard, with the song information and in the mode of `document`.
void CopyToClipboard(const ElementList& elements, const Document& document, const Services& services);

/// What the clipboard holds.
struct ClipboardMelody {
  ReadResult read;        ///< the program's own elements, or what the text is read as; else refused
  std::string text = {};  ///< Windows-1252; empty for the program's own elements
};
/// Reads a text by ReadPasted, which lets events run.
ClipboardMelody ReadClipboard(FormatMode mode, const Services& services);

}  // namespace trillomat
