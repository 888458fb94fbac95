// Limits that hold for everything that comes from outside.
#pragma once

#include <cstddef>

namespace trillomat {

/// The longest file or text that is taken in, in bytes: far above every melody, and far below what a machine
/// cannot hold.
constexpr size_t kLargestInput = size_t{64} << 20;

}  // namespace trillomat
