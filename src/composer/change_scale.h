// Moving a whole melody up or down by octaves, all or nothing.
#pragma once

#include <cstdint>

#include "core/format_mode.h"
#include "core/log.h"
#include "core/melody.h"

namespace trillomat {

/// Adds `octaves` to the octave of every element of `notes`. When one would leave the octave range of
/// `mode`, nothing changes, a level-2 message names the first such element (counting from 1), and the
/// result is false. A pause or command takes over the new octave of the tone before it, and counts as
/// octave 0 when no tone came before. An empty melody is left alone.
bool ChangeScale(MelodyList& notes, int16_t octaves, FormatMode mode, Log& log);

}  // namespace trillomat
