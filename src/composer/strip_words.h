// What the note strip shows around the cursor, in words, for those who hear it instead of seeing it.
#pragma once

#include <string>

#include "document/document.h"

namespace trillomat {

/// "Element 5 of 120: c sharp, octave 4, dotted quarter, 450 ms. Next: pause, eighth, 150 ms. Selected: 3
/// to 5." Windows-1252.
std::string StripWords(const Document& document);

}  // namespace trillomat
