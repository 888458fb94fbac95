// Replacing a file so that at every instant, a power cut included, its old or its new content is on the
// medium under its name, whole: it is written beside, flushed, renamed over the old one, and the folder is
// flushed. While that lasts the new content of tune.imy is ".saving-0.trillomat" in the same folder, locked
// by who writes it.
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
    NotMade,            ///< no new file could be made beside it
    NotWritten,         ///< nor with a device or pipe, which may have taken part of it
    NotFlushed,
    NotMoved,  ///< the new file could not take its place
  };

  Outcome outcome = Outcome::Replaced;
  std::string reason = {};  ///< the system's words ("No space left on device"), as far as it has any

  explicit operator bool() const {
    return outcome == Outcome::Replaced || outcome == Outcome::ReplacedUnflushed;
  }
};

using WriteContent = std::function<void(std::ostream&)>;

/// Puts what `write` writes in the place of `file`, which need not exist. A symbolic link is followed and
/// what it leads to replaced; rights and owner of an old file stay; a device, a pipe or a socket is written
/// into. An exception of `write` passes through, with the old file as it was.
Replacement ReplaceFile(const std::filesystem::path& file, FileStore& store, const WriteContent& write);
Replacement ReplaceFile(const std::filesystem::path& file, FileStore& store, std::string_view bytes);

/// Clears away what replacements that were killed left in `folder`.
void SweepLeftovers(const std::filesystem::path& folder, FileStore& store);

}  // namespace trillomat
