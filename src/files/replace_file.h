// Replaces a file so that at every instant, even at a power cut, either its old or its new content is on the
// medium under its name, and whole: the new file is written beside the old one, flushed and renamed over it,
// and the folder is flushed.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "files/file_store.h"

namespace trillomat {

/// The outcome of a replacement. The old file is as it was for all but the first two.
struct Replacement {
  enum class Outcome {
    Replaced,           ///< or, where the file is no plain one, written into
    ReplacedUnflushed,  ///< the folder could not be flushed, so that a power cut may undo it
    NotMade,            ///< no new file could be made beside it, or it is of a kind that is not replaced
    NotWritten,         ///< a device or pipe may have taken a part of the content
    NotFlushed,
    NotMoved,  ///< the new file could not take its place
  };

  Outcome outcome = Outcome::Replaced;
  std::string reason =
      {};  ///< why not, in words ("No space left on device"); empty where the system has none

  explicit operator bool() const {
    return outcome == Outcome::Replaced || outcome == Outcome::ReplacedUnflushed;
  }
};

/// Why a file that is marked read-only is not replaced.
inline constexpr std::string_view kMarkedReadOnly = "the file is marked read-only";

/// How a device, a pipe or a socket is treated in the place of a file: it is written into, waiting for a
/// reader (Wait) or failing where there is none (AtOnce); or it is refused.
enum class Streams { Wait, AtOnce, Refuse };

/// Writes the content of a file.
using WriteContent = std::function<void(std::ostream&)>;

/// One that writes `bytes`, which have to outlive it.
WriteContent WriteBytes(std::string_view bytes);

/// Puts what `write` writes in the place of `file`, which need not exist. Of a symbolic link, the file that
/// it leads to is replaced. Rights, owner and extended attributes of the old file are kept, as far as the
/// system allows. A file that is marked read-only is not replaced. An exception of `write` passes through,
/// and the old file stays.
Replacement ReplaceFile(const std::filesystem::path& file, FileStore& store, const WriteContent& write,
                        Streams streams = Streams::Wait);

/// The same for a file that the program keeps for itself: only a plain one, which the user alone can read.
Replacement ReplacePrivateFile(const std::filesystem::path& file, FileStore& store, std::string_view bytes);

/// Makes a folder for such files, for the user alone, if it is missing. Does not tell when it cannot be made:
/// then no file can be made in it.
void MakePrivateFolder(const std::filesystem::path& folder);

}  // namespace trillomat
