// What the writers of the formats without commands keep of a melody.
#pragma once

#include <string>

#include "core/note_codec.h"

namespace trillomat {

/// The element's token in `mode`, "" when the format cannot hold it (its token is in brackets).
inline std::string SupportedToken(MelodyNote& note, FormatMode mode, const NoteCodec& codec) {
  std::string token = codec.EncodeNote(note, mode);
  if (token.starts_with('[')) token.clear();
  return token;
}

}  // namespace trillomat
