// One element in words, for the status bar, the tooltips of the note strip and screen readers.
#pragma once

#include <cstdint>
#include <string>

#include "core/element.h"

namespace trillomat {

/// "c sharp, octave 4, dotted quarter, 450 ms"; "pause, eighth, 300 ms"; "light on", "repeat 3 times" for
/// commands. A text that the program does not know is quoted. Windows-1252.
std::string ElementWords(const Element& element, int32_t bpm);

/// The same without the length in milliseconds.
std::string ElementWords(const Element& element);

}  // namespace trillomat
