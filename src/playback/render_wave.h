// Renders a whole song into one WAV file.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "core/services.h"
#include "document/document.h"

namespace trillomat {

struct RenderOptions {
  int32_t endlessRounds = 1;  ///< how often an endless block is played, at least once
  bool anyLength = false;     ///< even more than anybody would want to render (PlayedLength)
};

/// Why there is no WAV file.
struct RenderFailure {
  std::string why;       ///< as in Refusal
  bool tooMuch = false;  ///< `anyLength` would render it
};

/// Writes the document's song as one mono 16-bit WAV of 44,100 samples a second: each tone is the image of
/// the wave output, looped and cut to its exact length, with a ramp of 3 ms at both ends; pauses are silence.
/// Logs what the player logs. Returns nothing when all went well. Fails when the file would hold more than an
/// hour of sound or too many repetitions, or be longer than a WAV file can be (nothing is written in these
/// cases), when the stream fails, or when the program is ending.
std::optional<RenderFailure> RenderWave(const Document& document, const RenderOptions& options,
                                        const Services& services, std::ostream& out);

}  // namespace trillomat
