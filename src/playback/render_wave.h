// Renders a whole song into one WAV file.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "core/services.h"
#include "document/document.h"

namespace trillomat {

/// Writes the document's song as one mono 16-bit WAV of 44,100 samples a second: each tone is the image of
/// the wave output, looped and cut to its exact length, with a ramp of 3 ms at both ends; pauses are silence.
/// Endless blocks are played `endlessRounds` times (at least once). Logs what the player logs. Nothing when
/// all went well; otherwise a sentence for the user that says why not: the result would be longer than a WAV
/// file can be (nothing is written then), the stream failed, or the program is ending.
std::optional<std::string> RenderWave(const Document& document, int32_t endlessRounds,
                                      const Services& services, std::ostream& out);

}  // namespace trillomat
