// The melodies that come with the program, and how the user gets copies of them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "files/file_store.h"

namespace trillomat {

/// What copying them came to.
struct CopiedSamples {
  size_t copied = 0;
  size_t kept = 0;    ///< files of these names that were there already, and stay as they are
  std::string fault;  ///< why one could not be copied, which ended it; empty when all were
};

/// Whether there is a melody file of any format in the folder itself.
bool HoldsMelodies(const std::filesystem::path& folder, FileStore& store);

/// Copies the melody files of all formats in `from` into the folder `to`, made when missing.
CopiedSamples CopySamples(const std::filesystem::path& from, const std::filesystem::path& to,
                          FileStore& store);

}  // namespace trillomat
