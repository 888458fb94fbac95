// Limits the processor time of a body: it may grow with the size of the input, and no faster.
#pragma once

#include <string>
#include <string_view>

#include "fuzz/bodies.h"

namespace trillomat {

/// Runs `body` over `input`. Throws std::logic_error when it takes more processor time than its bound for an
/// input of that size, and does so again when it is repeated. The wall clock and other programs do not
/// matter.
void RunInTime(const FuzzBody& body, std::string_view input);

/// `input` with a part of it, chosen by its bytes, repeated until there are `size` bytes or a few more: so
/// work that takes too long shows. Inputs of that size would take too long to be invented byte by byte.
std::string Lengthened(std::string_view input, size_t size);

/// Whether `input` is one of the few, chosen by its bytes, that are run lengthened, too.
bool IsToBeLengthened(std::string_view input);

}  // namespace trillomat
