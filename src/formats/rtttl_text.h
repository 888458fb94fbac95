// Writing RTTTL text, what the file writer and the export share (the format: rtttl_notes.h).
#pragma once

#include <string>

#include "core/codec.h"
#include "core/log.h"
#include "core/song.h"

namespace trillomat {

/// The RTTTL text of a song moved up by `octaves`, without a line end. Leaves out elements that RTTTL cannot
/// express. The last character is removed whatever it is, so a song without any note ends before the ":" of
/// the header. The modern spelling has no other keys than d, o and b, since many players take what follows
/// them for notes, and cuts the name off at its first ":".
std::string RtttlText(const Song& song, int octaves, RtttlSpelling spelling, Log& log);

/// The bytes of an RTTTL file: that text and a line end.
std::string RtttlFile(const Song& song, RtttlSpelling spelling, Log& log);

/// Words for the user on what becomes of a name that holds ":", when that text is read again: a sentence
/// without its full stop. Empty for a name that comes back as it is.
std::string RtttlNameWarning(const SongInfo& info, RtttlSpelling spelling);

}  // namespace trillomat
