// The elements that want the user's eye: those that no reader understood, and those that the mode cannot
// hold.
#pragma once

#include <optional>
#include <string>

#include "document/document.h"

namespace trillomat {

/// The index of the next such element: searched from behind the cursor to the end, then from the start up to
/// the cursor. Nothing where there is none.
std::optional<int32_t> NextProblem(const Document& document);

/// 'Element 12 of 40: not understood (unknown tone "5_", quarter)' or 'Element 3 of 40: RTTTL cannot hold it
/// (light on)'; without an index, words that there is no problem.
std::string ProblemWords(const Document& document, std::optional<int32_t> index);

}  // namespace trillomat
