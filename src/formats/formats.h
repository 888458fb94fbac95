// The four melody file formats: bytes into a song and a song into bytes, by one table with a row a format.
// How each looks is described where it is read and written (imelody.cpp, emelody.cpp, rtttl.cpp,
// melody.cpp). Nothing here knows of files. Events run once for each element; their handlers cannot touch
// what is being read or written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/format_mode.h"
#include "core/refusal.h"
#include "core/services.h"
#include "core/song.h"

namespace trillomat {

/// The elements that a reader kept, or dropped, without knowing what they are: IsUnderstood is false for
/// them.
struct NotUnderstood {
  size_t count = 0;
  size_t of = 0;       ///< all elements that were read, dropped ones included
  Refusal first = {};  ///< the place and text of the first one, without a why
};

/// What a read or an import came to.
struct ReadResult {
  ElementList elements;            ///< empty when it was refused
  ReadRecord record;               ///< the song information as far as it was read, refused or not
  std::optional<Refusal> refusal;  ///< why there are no elements
  NotUnderstood notUnderstood = {};

  explicit operator bool() const { return !refusal; }
};

/// Reads a file's bytes. Fields that they do not hold get their values from `before`. A fault is logged as
/// "Error in bReadFile_IMelody" (level 1), with the name of that mode's reader.
ReadResult Read(std::string_view bytes, FormatMode mode, const ReadRecord& before, const Services& services);

/// The bytes of a file that holds the song; refused only when the program is ending, or out of memory, which
/// is logged as LogWriterFault does.
Result<std::string> Write(const Song& song, FormatMode mode, const Services& services);

/// Logs that a file of `mode` could not be read from its medium, or not be written to it: "Error in
/// bReadFile_IMelody", "Error in bSaveFile_IMelody" (level 1), or the names of that mode's reader and writer.
void LogReaderFault(FormatMode mode, Log& log);
void LogWriterFault(FormatMode mode, Log& log);

}  // namespace trillomat
