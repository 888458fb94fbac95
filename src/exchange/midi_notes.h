// The notes of a MIDI file, track by track.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/services.h"

namespace trillomat {

/// Times count 96 units to a quarter note: every length that an element can have is a whole number of them.
inline constexpr int64_t kMidiUnits = 96;

struct MidiNote {
  int64_t start = 0;  ///< units since the start of the song
  int64_t end = 0;
  int key = 0;  ///< semitones; a = 440 Hz is 69

  bool operator==(const MidiNote&) const = default;
};

/// A track that holds notes.
struct MidiTrack {
  size_t number = 0;      ///< of the track in the file, from 1; in a file of one track that of the channel
  std::string name = {};  ///< Windows-1252, one line; may be empty
  std::vector<MidiNote> notes;  ///< in the order in which they begin
  bool drums = false;           ///< its notes are those of the drum channel; other tracks hold none of these
  size_t leftDrums = 0;         ///< how many notes of drums such a track had
};

/// What is taken from a file.
struct MidiContents {
  std::vector<MidiTrack> tracks;  ///< at least one
  std::string name;               ///< of the song, that is of the first track; Windows-1252, one line
  std::optional<int32_t> beat;    ///< microseconds in a quarter note, by the first event that tells it
  size_t laterTempos = 0;         ///< how often the tempo changes after that
  size_t bends = 0;               ///< events that bend a pitch
};

/// Reads a whole file. A file of one track counts each of its channels as a track. Notes that nothing ends
/// last until their track does. Throws a ReadFault (formats/reading.h) for what is no MIDI file that can be
/// read, for one without notes or with more than a million, and when the program is ending.
MidiContents ReadMidiContents(std::string_view bytes, const Services& services);

}  // namespace trillomat
