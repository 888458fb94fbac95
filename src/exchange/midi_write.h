// Writes a melody as a Standard MIDI File of one track, to be played anywhere.
#pragma once

#include <string>
#include <vector>

#include "core/song.h"

namespace trillomat {

/// Ticks in a quarter note of a written file: every length of an element is a whole number of them.
inline constexpr int kMidiDivision = 480;

/// The key of c in internal octave 0, so that the octave with a = 440 Hz (key 69) is the third.
inline constexpr int kMidiLowestC = 24;

struct WrittenMidi {
  std::string bytes;
  std::vector<std::string> changes;  ///< what differs from the song: sentences without full stop
};

/// A file of type 0 with the name, the tempo and the tones and pauses of `song`, whose elements come in the
/// order of playing (see PlayedElements of playback/); commands are passed over, as are tones that no player
/// knows. The name stays Windows-1252. A tempo of 0 is kDefaultTempo.
WrittenMidi WriteMidi(const Song& song);

}  // namespace trillomat
