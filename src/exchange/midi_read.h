// Reads a Standard MIDI File as a melody.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/formats.h"

namespace trillomat {

/// A track to choose from.
struct MidiTrackTitle {
  size_t number = 0;      ///< of the track in the file, from 1; in a file of one track, of the channel
  std::string name = {};  ///< Windows-1252, one line; may be empty
  size_t notes = 0;       ///< how many it holds
  bool drums = false;     ///< it holds nothing but drums

  bool operator==(const MidiTrackTitle&) const = default;
};

struct MidiRead {
  ReadResult read;
  std::vector<MidiTrackTitle> tracks;  ///< those that hold notes
  size_t track = 0;                    ///< the number of the one that was taken
  std::vector<std::string> dropped;    ///< what was left out or changed: sentences without full stop
};

/// The highest voice of the track of that number as a melody of `mode`; without a number that of the track
/// with the most notes that is no drums. The song information starts anew, with the file's name for the song
/// (or else for the track) and its first tempo, 120 beats a minute where it has none. Refused in plain words:
/// what is no MIDI file, of type 2, timed in film frames, without notes; a track that is not there, drums
/// where no track was asked for, more than a million notes or 100,000 elements, and the end of the program.
MidiRead ReadMidiFile(std::string_view bytes, FormatMode mode, std::optional<size_t> track,
                      const ReadRecord& before, const Services& services);

}  // namespace trillomat
