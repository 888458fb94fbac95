// The song: its elements and the song information that goes with them, plain values; and what else has
// to be known to read or write one.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "core/element.h"

namespace trillomat {

inline constexpr int kHighestVolume = 15;      ///< of "V0" to "V15"
inline constexpr int16_t kHighestLoop = 15;    ///< RTTTL repeat counts from here on are without end
inline constexpr int32_t kDefaultTempo = 100;  ///< beats per minute, in place of a tempo of 0

/// The song information. It starts as the song-information panel does. Texts are Windows-1252.
struct SongInfo {
  std::string name = {};
  std::string composer = {};
  int32_t bpm = kDefaultTempo;  ///< tempo in beats per minute
  std::string style = "S0";     ///< "S0" natural, "S1" continuous, "S2" staccato
  std::string volume = "V10";   ///< "V" and a number from 0 to kHighestVolume
  std::string version = "1.2";
  std::string format = "Class 1.0";
  int16_t loop = 0;  ///< RTTTL repeat count, 0 for none

  bool operator==(const SongInfo&) const = default;
};

struct Song {
  ElementList elements = {};
  SongInfo info = {};

  bool operator==(const Song&) const = default;
};

/// What an RTTTL token without its own octave or duration stands for.
struct TokenDefaults {
  int16_t octave = 4;     ///< internal octave number; -1 for no default
  float duration = 1.0F;  ///< beats; -1.0 for no default

  bool operator==(const TokenDefaults&) const = default;
};

/// Every token carries its own octave and duration.
inline constexpr TokenDefaults kNoTokenDefaults{.octave = -1, .duration = -1.0F};

/// Counts the octaves 3 to 6 (those of RTTTL) and the durations of a song's elements, to tell the commonest.
/// Of durations that occur equally often the longest counts as the commonest; with nothing to count, it is
/// octave 3 and duration 4.0.
class DefaultsCount {
 public:
  DefaultsCount() = default;
  /// Counts `elements` as if they were moved by `octaves`.
  explicit DefaultsCount(const ElementList& elements, int octaves = 0);

  void Add(const Element& element) { Change(element, 1); }
  void Remove(const Element& element) { Change(element, -1); }
  /// Elements get these octaves, or lose them; their durations stay.
  void AddOctaves(std::span<const int16_t> octaves) { ChangeOctaves(octaves, 1); }
  void RemoveOctaves(std::span<const int16_t> octaves) { ChangeOctaves(octaves, -1); }

  /// Of octaves that occur equally often the lowest: what the text view leaves out.
  TokenDefaults Commonest() const;
  /// Where several octaves are the commonest, octave 3: what an RTTTL header announces.
  TokenDefaults CommonestForHeader() const;

 private:
  void Change(const Element& element, int by);
  void ChangeOctaves(std::span<const int16_t> octaves, int by);

  std::array<int64_t, 4> octaves_{};
  std::array<int64_t, kDurations.size()> durations_{};
};

/// The keys of the last RTTTL header read. They start with the values that the published format gives a
/// header without keys; a key that a header leaves out keeps the value of the header before it.
struct RtttlKeys {
  std::string name = {};
  int32_t bpm = 63;        ///< beats per minute
  std::string style = {};  ///< the character after "s="
  int16_t loop = 0;
  TokenDefaults defaults = {};

  bool operator==(const RtttlKeys&) const = default;
};

/// What a read starts from and, changed, leaves for the next one: a field that a file does not hold keeps
/// the value of the read before, even of one that was refused further on. Not the song's own information.
struct ReadRecord {
  SongInfo info = {};
  RtttlKeys rtttl = {};

  bool operator==(const ReadRecord&) const = default;
};

}  // namespace trillomat
