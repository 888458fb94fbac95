// Walks a song as the play loop does, but in silence and without taking time.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "core/services.h"
#include "document/document.h"
#include "playback/player.h"

namespace trillomat {

/// "tone", "pause", "command" or "repeat".
std::string_view KindText(ElementKind kind);

struct TraceStep {
  int32_t index = 0;  ///< of the element in the song
  PlayedElement played;
};

/// Is called with each step; returning false ends the walk.
using TraceSink = std::function<bool(const TraceStep&)>;

/// Calls `sink` for each element of the document in the order of playing, and logs what the player logs.
/// Endless blocks are played `endlessRounds` times (at least once). Blocks that would send each other back
/// for ever are left as soon as they repeat themselves (RepeatBlock::leaveCycles). False when the sink or the
/// end of the program broke the walk off.
bool TraceMelody(const Document& document, int32_t endlessRounds, const Services& services,
                 const TraceSink& sink);

}  // namespace trillomat
