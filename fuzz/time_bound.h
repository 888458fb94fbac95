// What a body may cost: a processor time that grows with the input's size and no faster.
#pragma once

#include <string>
#include <string_view>

#include "fuzz/bodies.h"

namespace trillomat {

/// Runs `body` over `input`. Throws std::logic_error when it takes more processor time than its bound for a
/// text of that size, also when it is run again: the wall clock and other programs do not matter.
void RunInTime(const FuzzBody& body, std::string_view input);

/// `input` with a part of it, which its bytes choose, repeated until there are `size` bytes or a few more:
/// what costs too much grows with it. Inputs of that size are too slow to be invented byte by byte.
std::string Lengthened(std::string_view input, size_t size);

/// Whether `input` is one of the few, chosen by its bytes, that are run lengthened, too.
bool IsToBeLengthened(std::string_view input);

}  // namespace trillomat
