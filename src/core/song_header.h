// The song information that goes with a melody, and what the last RTTTL header said.
#pragma once

#include <cstdint>
#include <string>

namespace trillomat {

/// The song information. It starts as the song-information panel does.
struct SongHeader {
  std::string Name;
  std::string Composer;
  int32_t BPM = 100;           ///< tempo in beats per minute
  std::string Style = "S0";    ///< "S0" natural, "S1" continuous, "S2" staccato
  std::string Volume = "V10";  ///< "V" and a number from 0 to 15
  std::string Version = "1.2";
  std::string Format = "Class 1.0";
  int16_t Loop = 0;  ///< RTTTL repeat count, 0 for none

  bool operator==(const SongHeader&) const = default;
};

/// The last RTTTL header read. It starts with the values that the published format gives a header
/// without keys; a key that a header leaves out keeps the value of the header before it.
struct RtttlDefaults {
  std::string Name;
  int32_t BPM = 63;   ///< beats per minute
  std::string Style;  ///< the character after "s="
  int16_t Loop = 0;
  int16_t Octave = 4;     ///< internal number: the RTTTL octave minus 2
  float Duration = 1.0F;  ///< quarter-note beats
};

}  // namespace trillomat
