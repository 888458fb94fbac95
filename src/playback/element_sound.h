// How long an element lasts when it is played, and how high it sounds, told without playing it.
#pragma once

#include <cstdint>

#include "core/element.h"

namespace trillomat {

/// Milliseconds of a quarter-note beat at `bpm` beats per minute, rounded half to even: 600 at 100. A tempo
/// of 0 counts as kDefaultTempo; a negative one gives a negative length, which is played as 0.
int32_t BeatLength(int32_t bpm);

/// Milliseconds that the element takes when it is played at `bpm` beats per minute; 0 for a command, for an
/// unknown tone, which is not sounded, and for a length that 32 bits do not hold.
int32_t ElementLength(const Element& element, int32_t bpm);

/// Hertz of a tone; 0 for any other element, and for a tone that cannot be sounded.
int32_t ElementFrequency(const Element& element);

}  // namespace trillomat
