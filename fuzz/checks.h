// What holds for every song, however it came into the program. Each throws std::logic_error when it does not.
#pragma once

#include <string_view>

#include "formats/formats.h"

namespace trillomat {

/// Each element has a token in every mode, in brackets where the mode cannot express it.
void CheckTokens(const ElementList& elements, const TokenDefaults& defaults, Log& log);

/// Any song can be written in every format.
void CheckWriting(const Song& song, const Services& services);

/// An export gives a text that ends its lines, or words on why there is none.
void CheckExports(const Song& song, const Services& services);

/// A read or an import of `input` gave elements or a refusal with its place, and what it gave can be written.
void CheckResult(std::string_view input, ReadResult result, const Services& services);

}  // namespace trillomat
