// Walks a melody as the play loop does, but in silence and without taking time.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "core/log.h"
#include "core/workspace.h"
#include "playback/player.h"

namespace trillomat {

/// "tone", "pause", "command" or "repeat".
std::string_view KindText(ElementKind kind);

struct TraceStep {
  int32_t index = 0;  ///< of the element in the melody
  PlayedElement played;
};

/// Takes one step; false ends the walk.
using TraceSink = std::function<bool(const TraceStep&)>;

/// Calls `sink` for each element of `ws.melody` in the order of playing, with a beat of `beat`
/// milliseconds, and logs what the player logs. Endless blocks are played `endlessRounds` times (at
/// least once); blocks that send each other back for ever are left when they begin to recur. False when
/// the sink or the end of the program (ws.pump) broke the walk off.
bool TraceMelody(const Workspace& ws, int32_t beat, int32_t endlessRounds, const TraceSink& sink);
/// The same with a log of its own.
bool TraceMelody(const Workspace& ws, int32_t beat, int32_t endlessRounds, const TraceSink& sink, Log& log);

}  // namespace trillomat
