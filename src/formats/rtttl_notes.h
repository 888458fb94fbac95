// Reading RTTTL text, what the file reader and the import of pasted text share. The format is Nokia's ring
// tone text transfer language, extended by the keys "s=" (style) and "l=" (loop):
//
//   Name:d=4,o=5,b=120:8c,p,c#6.
#pragma once

#include <string>
#include <string_view>

#include "formats/reading.h"

namespace trillomat {

/// For a refusal of a text that is no RTTTL.
inline constexpr std::string_view kRtttlAdvice = "A tune looks like \"name:d=4,o=5,b=120:c,8d,2e6\"";

/// The two halves of an RTTTL text, around its second ":".
struct RtttlParts {
  std::string_view header;  ///< name, ":" and keys
  std::string_view notes;
};

/// Reads an RTTTL text: its header into `reading.record`, where a key that it lacks keeps the last header's
/// value and the volume stays as it was; and its notes, of which there may be none, into the elements.
/// Returns where both stand in the bytes. Logs "Critical Error in GetDefault RTTTL" (level 1) for a digit run
/// at the header's end and "Last Note??-->" for a last token without ",". Ends the read with a logged fault
/// for fewer than two ":" and for a number that does not fit its field.
RtttlParts TakeRtttlText(Reading& reading);

/// Notes as the codec wants them: without whitespace, in lower case, pauses as "r", the German "h" as "b".
std::string RtttlNoteText(std::string_view notes);

}  // namespace trillomat
