// One element in words, for the status bar, the tooltips of the note strip and screen readers; and the length
// and frequency that the player gives it, which are among these words.
#pragma once

#include <cstdint>
#include <string>

#include "core/element.h"

namespace trillomat {

/// Milliseconds that the element takes when it is played at `bpm` beats per minute; 0 for a command, for an
/// unknown tone, which is not sounded, and for a length that 32 bits do not hold.
int32_t ElementLength(const Element& element, int32_t bpm);

/// Hertz of a tone; 0 for any other element, and for a tone that cannot be sounded.
int32_t ElementFrequency(const Element& element);

/// "c sharp, octave 4, dotted quarter, 450 ms"; "pause, eighth, 300 ms"; "light on", "repeat 3 times" for
/// commands. A text that the program does not know is quoted. Windows-1252.
std::string ElementWords(const Element& element, int32_t bpm);

/// The same without the length in milliseconds.
std::string ElementWords(const Element& element);

}  // namespace trillomat
