// Writing RTTTL text, what the file writer and the export share (the format: rtttl_notes.h).
#pragma once

#include <string>

#include "core/log.h"
#include "core/song.h"

namespace trillomat {

/// The RTTTL text of a song, without a line end. Leaves out elements that RTTTL cannot express. Its last
/// character is removed whatever it is: the ":" of the header when there is no note.
std::string RtttlText(const Song& song, Log& log);

}  // namespace trillomat
