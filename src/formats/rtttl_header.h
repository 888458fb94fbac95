// Reading RTTTL text, what the file reader and the import of pasted text share. The format is Nokia's
// ring tone text transfer language, extended by the keys "s=" (style) and "l=" (loop):
//
//   Name:d=4,o=5,b=120:8c,p,c#6.
#pragma once

#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// The two halves of an RTTTL text, around its second ":".
struct RtttlParts {
  std::string_view header;  ///< name, ":" and keys
  std::string_view notes;
};

/// Cuts `text` (its layout removed already). Throws RunTimeFault when it holds fewer than two ":".
RtttlParts SplitRtttl(std::string_view text);

/// Parses a header into ws.rtttl and ws.codec.defaults. A key that it lacks keeps the last header's
/// value, in both. Logs "Incorrect Header" (level 2) for a text without ":", and "Critical Error in
/// GetDefault RTTTL" (level 1) for a digit run at the very end; throws RunTimeFault for a number that
/// does not fit its field.
void GetDefaultRTTTL(std::string_view header, Workspace& ws);

/// Sets the song information from the last header. Volume stays as it was.
void TakeRtttlHeader(Workspace& ws);

/// Appends the records of the note tokens to ws.ImportMelody: lower-cased, p and "-" as pauses, h as
/// b. Refused tokens are dropped. A last token without "," behind it is logged ("Last Note??-->").
void AppendRtttlTokens(std::string_view notes, Workspace& ws);

}  // namespace trillomat
