// One melody out of the notes of a track: its highest voice, on the lengths and octaves that a mode has.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/element.h"
#include "core/format_mode.h"
#include "exchange/midi_notes.h"

namespace trillomat {

/// The notes of the highest voice, none of which begins before the one before it ends. `notes` come in the
/// order of their starts. Of notes that begin together (up to a 128th note apart) the highest stays, and a
/// note that begins while a higher one sounds belongs to another voice. A note ends where the next one
/// begins.
std::vector<MidiNote> HighestVoice(std::span<const MidiNote> notes);

struct MidiMelody {
  ElementList elements;
  std::vector<std::string> changes;  ///< what differs from the notes: sentences without full stop
};

/// `voice` as tones and pauses of `mode`. Where all its lengths are ones that the mode has they stay what
/// they are. Otherwise its tones begin on multiples of the shortest length, or of its triplet where the mode
/// has one; what no single length holds is a tone and a pause behind it. A melody beyond the octaves of the
/// mode moves as a whole where it fits, or else the tones beyond them do. Throws a ReadFault
/// (formats/reading.h) when it comes to more than 100,000 elements.
MidiMelody MelodyOf(std::span<const MidiNote> voice, FormatMode mode);

}  // namespace trillomat
