// Moving elements up or down, all or nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/element.h"
#include "core/format_mode.h"
#include "core/log.h"
#include "document/document.h"

namespace trillomat {

/// `elements` with `octaves` added to the octave of each. When one would leave the octave range of `mode`, a
/// level-2 message names the first such element by its number, and the result is nothing. A pause or command
/// gets the new octave of the tone before it, or octave 0 when no tone came before. Logs nothing when there
/// are no elements.
std::optional<ElementList> Transposed(ElementList elements, int16_t octaves, FormatMode mode, Log& log);

/// The same for a range of the document, which must exist, giving only the octaves, as a Change takes them.
/// The message numbers elements as in the document.
std::optional<std::vector<int16_t>> MovedOctaves(const Document& document, ElementRange range, int16_t by,
                                                 Log& log);

/// `elements` with each tone moved by `semitones`, spelled as a piano's keys are; pauses, commands and tones
/// of no known name stay. Refuses as Transposed does; `first` is the number of the first element in the
/// message.
std::optional<ElementList> TransposedBySemitones(ElementList elements, int semitones, FormatMode mode,
                                                 Log& log, int64_t first = 1);

/// The tone moved by `semitones`; any other element as it is. Its octave may be one that no mode has.
Element Moved(Element element, int semitones);

}  // namespace trillomat
