// A song as it is heard, for those who write it elsewhere: its repeats unrolled.
#pragma once

#include <cstdint>

#include "core/refusal.h"
#include "core/services.h"
#include "document/document.h"

namespace trillomat {

/// The tones and pauses of the document's song in the order of playing; commands, and tones that are not
/// sounded, are left out. Endless blocks come `endlessRounds` times. Logs what the player logs. Refused when
/// that would have more than an hour of sound or repeat itself without end, and when the program is ending.
Result<ElementList> PlayedElements(const Document& document, int32_t endlessRounds, const Services& services);

}  // namespace trillomat
