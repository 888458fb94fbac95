// Writing RTTTL text, what the file writer and the export share (the format: rtttl_notes.h).
#pragma once

#include <string>

#include "core/codec.h"
#include "core/log.h"
#include "core/song.h"

namespace trillomat {

/// The RTTTL text of a song `octaves` higher, without a line end. Leaves out elements that RTTTL cannot
/// express. Its last character is removed whatever it is: the ":" of the header when there is no note. The
/// modern spelling has the keys d, o and b alone, since many players take what follows them for notes, and
/// ends a name before its first ":".
std::string RtttlText(const Song& song, int octaves, RtttlSpelling spelling, Log& log);

/// The bytes of an RTTTL file: that text and a line end.
std::string RtttlFile(const Song& song, RtttlSpelling spelling, Log& log);

/// What a name that holds ":" comes to in that text, for the user: a sentence without its full stop. Empty
/// for a name that comes back as it is written.
std::string RtttlNameWarning(const SongInfo& info, RtttlSpelling spelling);

}  // namespace trillomat
