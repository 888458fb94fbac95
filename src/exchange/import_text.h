// Converts pasted melody texts into ws.ImportMelody and ws.header. The formats are those of the files
// (rtttl_header.h, emelody_file.h, letter_tokens.h), but a paste need not be a whole file.
//
// All three ignore blanks, line ends and tabs. On failure they return false, leave ImportMelody empty, say
// why in ws.refusal, and log "Error in " and their own name (level 1); song information that was read already
// stays.
#pragma once

#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// RTTTL text. A loop count goes to the song information alone, the melody gets no repeat marks.
bool Convert_RTTTL(std::string_view source, Workspace& ws);

/// E-Melody text: an EMelody file, or its note tokens without any marker. Always sets the song information to
/// "Unknown" at 200 beats per minute.
bool bConvert_EMelody(std::string_view source, Workspace& ws);

/// Melody text, otherwise as bConvert_EMelody.
bool bConvert_Melody(std::string_view source, Workspace& ws);

}  // namespace trillomat
