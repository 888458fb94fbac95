// A song as it is heard, its repeats unrolled, for formats that have none.
#pragma once

#include <cstdint>

#include "core/refusal.h"
#include "core/services.h"
#include "document/document.h"

namespace trillomat {

/// The tones and pauses of the document's song in the order of playing; commands, and tones that are not
/// sounded, are left out. Endless blocks are played `endlessRounds` times. Logs what the player logs. Refused
/// when there would be more than an hour of sound, or too many repetitions (PlayedLength), and when the
/// program is ending.
Result<ElementList> PlayedElements(const Document& document, int32_t endlessRounds, const Services& services);

}  // namespace trillomat
