// Cutting an iMelody melody line, whose tokens stand without a separator, into its tokens.
#pragma once

#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// Cuts `notes` (layout is removed first) and appends the records to ws.ImportMelody. Throws
/// RunTimeFault when a repeat end has no ")", or no length digit follows within the first 32767
/// characters of what is left, as in a text without any token.
void AppendIMelodyTokens(std::string_view notes, Workspace& ws);

}  // namespace trillomat
