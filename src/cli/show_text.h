// A melody as a listing for people and as JSON for programs. Both are UTF-8.
#pragma once

#include <string>

#include "core/workspace.h"

namespace trillomat {

/// The song information, then a line for each element with its token in the notation of ws.iNoteMode.
std::string ShowText(Workspace& ws);

/// The same as one JSON object with the members "header" and "elements".
std::string ShowJson(Workspace& ws);

/// The token of one element as both print it: in RTTTL always with its duration and octave, so that a
/// token means the same wherever it stands. Sets the codec's defaults.
std::string FullToken(Workspace& ws, MelodyNote note);

}  // namespace trillomat
