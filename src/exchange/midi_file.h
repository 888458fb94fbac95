// Standard MIDI Files as bytes, by "Standard MIDI Files 1.0" (MIDI Manufacturers Association, RP-001):
//
//   file    a chunk "MThd", then chunks "MTrk"; other chunks are to be skipped
//   chunk   4 letters, a length, that many bytes         numbers: 32 or 16 bits, most significant byte first
//   MThd    type (0: one track, 1: tracks that sound together, 2: songs of their own), number of tracks,
//           division: ticks in a quarter note, or, with the highest bit set, parts of a film frame (SMPTE)
//   MTrk    pairs of a delta time in ticks (variable length) and an event:
//             8n key velocity   note off in channel n        FF type length bytes   meta event
//             9n key velocity   note on, off at velocity 0   F0 length bytes        system exclusive, as F7
//             An, Bn, En        two data bytes               Cn, Dn                 one data byte
//           an event of a channel may leave out its first byte when it is that of the event before
//   variable length: 7 bits a byte, the highest first, bit 7 set in all but the last; at most 4 bytes
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

inline constexpr uint8_t kMidiNoteOff = 0x80;  ///< with the channel in the lower four bits, as what follows
inline constexpr uint8_t kMidiNoteOn = 0x90;
inline constexpr uint8_t kMidiPitchBend = 0xE0;
inline constexpr uint8_t kMidiMeta = 0xFF;

inline constexpr uint8_t kMetaText = 0x01;
inline constexpr uint8_t kMetaTrackName = 0x03;
inline constexpr uint8_t kMetaEndOfTrack = 0x2F;
inline constexpr uint8_t kMetaTempo = 0x51;  ///< 3 bytes: microseconds in a quarter note

inline constexpr int kMidiDrumChannel = 9;  ///< the tenth, by General MIDI

struct MidiEvent {
  int64_t time = 0;             ///< ticks since the start of the track
  uint8_t status = 0;           ///< the first byte, as if it were never left out
  uint8_t first = 0;            ///< the first data byte; the type of a meta event
  uint8_t second = 0;           ///< the second data byte
  std::string_view bytes = {};  ///< what a meta or system exclusive event holds

  /// kMidiNoteOff and the like.
  uint8_t Kind() const { return status & 0xF0; }
  int Channel() const { return status & 0x0F; }
  bool IsMeta(uint8_t type) const { return status == kMidiMeta && first == type; }
};

struct MidiFile {
  int type = 0;
  int division = 0;                      ///< ticks in a quarter note, from 1 to 32,767
  std::vector<std::string_view> tracks;  ///< what their chunks hold: parts of the bytes that were parsed
};

/// The chunks of a file, as many tracks as it announces. Throws a ReadFault (formats/reading.h) in plain
/// words when it is none, is broken off, is of type 2 or counts in film frames.
MidiFile ParseMidiFile(std::string_view bytes);

/// Gives the events of a track one after the other.
class MidiTrackEvents {
 public:
  explicit MidiTrackEvents(std::string_view track) : track_(track) {}

  /// The next event; the end of the track is one, too. Nothing behind that, or where the bytes end between
  /// two events. Throws a ReadFault where they are no event.
  std::optional<MidiEvent> Next();

 private:
  uint8_t TakeByte();
  uint8_t TakeDataByte();
  int64_t TakeNumber();
  std::string_view TakeBytes();

  std::string_view track_;
  size_t at_ = 0;
  int64_t time_ = 0;
  uint8_t running_ = 0;  ///< status of the last event of a channel
  bool ended_ = false;
};

/// Builds one track.
class MidiTrackBytes {
 public:
  /// Adds an event, which comes not before the last one.
  void Add(const MidiEvent& event);
  const std::string& Bytes() const { return bytes_; }

 private:
  void AddNumber(int64_t value);

  std::string bytes_;
  int64_t time_ = 0;
};

/// A file of type 0.
std::string MidiFileBytes(int division, const MidiTrackBytes& track);

}  // namespace trillomat
