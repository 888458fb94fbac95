// Replacing a file so that at every instant, a power cut included, its old or its new content is on the
// medium under its name, whole: it is written beside, flushed, renamed over the old one, and the folder is
// flushed.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "files/file_store.h"

namespace trillomat {

/// How a replacement came out. The old file is as it was for all but the first two.
struct Replacement {
  enum class Outcome {
    Replaced,           ///< or, where the file is no plain one, written into
    ReplacedUnflushed,  ///< the folder could not be flushed, so that a power cut may undo it
    NotMade,            ///< no new file could be made beside it, or it is one that is not replaced
    NotWritten,         ///< nor with a device or pipe, which may have taken part of it
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

/// Why a file is not replaced that is marked so.
inline constexpr std::string_view kMarkedReadOnly = "the file is marked read-only";

/// What is done with a device, a pipe or a socket: it is written into, and waited for where nobody reads, or
/// not; or it is refused.
enum class Streams { Wait, AtOnce, Refuse };

using WriteContent = std::function<void(std::ostream&)>;

/// Writes these bytes, which outlive it.
WriteContent WriteBytes(std::string_view bytes);

/// Puts what `write` writes in the place of `file`, which need not exist. A symbolic link is followed and
/// what it leads to replaced; rights, owner and extended attributes of an old file stay, as far as the system
/// lets them; one that is marked read-only is not replaced. An exception of `write` passes through, with the
/// old file as it was.
Replacement ReplaceFile(const std::filesystem::path& file, FileStore& store, const WriteContent& write,
                        Streams streams = Streams::Wait);

/// The same for a file that the program keeps for itself: a plain one, that the user alone can read.
Replacement ReplacePrivateFile(const std::filesystem::path& file, FileStore& store, std::string_view bytes);

/// Makes the folder that such files lie in where it is missing, for the user alone. One that cannot be made
/// shows when a file is to be.
void MakePrivateFolder(const std::filesystem::path& folder);

}  // namespace trillomat
