// Limits that several folders keep to.
#pragma once

#include <cstddef>

namespace trillomat {

/// The longest file or pasted text that is read, in bytes: far above every melody, and small enough for the
/// memory of every machine.
inline constexpr size_t kLargestInput = size_t{64} << 20;

/// How many of the files that were opened or saved last are remembered.
inline constexpr size_t kMostRecentFiles = 10;

}  // namespace trillomat
