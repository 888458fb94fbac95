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

/// `elements` with `octaves` added to the octave of each. When one would leave the octave range of `mode`,
/// a level-2 message names the first such element by its number, and the result is nothing. A pause or
/// command takes over the new octave of the tone before it, and counts as octave 0 when no tone came before.
/// No elements give none, without a word in the log.
std::optional<ElementList> Transposed(ElementList elements, int16_t octaves, FormatMode mode, Log& log);

/// The octaves that Transposed gives the elements of a range, which must exist, as a Change takes them; they
/// are numbered as in the document.
std::optional<std::vector<int16_t>> MovedOctaves(const Document& document, ElementRange range, int16_t by,
                                                 Log& log);

/// `elements` with each tone moved by `semitones`, spelled as a piano's keys are; pauses, commands and tones
/// of no known name stay. Refuses as Transposed does.
std::optional<ElementList> TransposedBySemitones(ElementList elements, int semitones, FormatMode mode,
                                                 Log& log, int64_t first = 1);

/// The tone moved by `semitones`; any other element as it is. Its octave may be one that no mode has.
Element Moved(Element element, int semitones);

}  // namespace trillomat
