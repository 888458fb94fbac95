// Renders a whole melody into one WAV file.
#pragma once

#include <cstdint>
#include <ostream>

#include "core/workspace.h"

namespace trillomat {

/// Writes `ws.melody`, played with a beat of `beat` milliseconds, as one mono 16-bit WAV of 44,100
/// samples a second: each tone is the image of the wave output, looped and cut to its exact length, with
/// a ramp of 3 ms at both ends; pauses are silence. Endless blocks are played `endlessRounds` times (at
/// least once). Logs what the player logs. False, with the words in `ws.refusal`, when the result
/// would be longer than a WAV file can be (nothing is written then), when the stream fails, and when
/// the program is ending.
bool RenderWave(Workspace& ws, int32_t beat, int32_t endlessRounds, std::ostream& out);

}  // namespace trillomat
