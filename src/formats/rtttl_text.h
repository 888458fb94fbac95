// Writing RTTTL text, what the file writer and the export share (the format: rtttl_header.h).
#pragma once

#include <string>

#include "core/workspace.h"

namespace trillomat {

/// The RTTTL text of ws.ExportMelody and ws.header, without a line end. Stores the defaults that it
/// announces in ws.codec.defaults, and leaves out elements that RTTTL cannot express. Its last
/// character is removed whatever it is: the ":" of the header when there is no note.
std::string BuildRtttlText(Workspace& ws);

}  // namespace trillomat
