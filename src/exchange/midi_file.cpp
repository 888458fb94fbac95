#include "exchange/midi_file.h"

#include <algorithm>

#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr int64_t kLargestNumber = 0x0FFF'FFFF;
constexpr int kLongestNumber = 4;  // bytes
constexpr size_t kChunkHead = 8;
constexpr size_t kHeaderSize = 6;

[[noreturn]] void Refuse(const std::string& why) { throw ReadFault(ReadFault::Kind::Quiet, why); }

uint32_t NumberAt(std::string_view bytes, size_t at, size_t size) {
  uint32_t number = 0;
  for (const char c : bytes.substr(at, size)) number = number << 8 | static_cast<unsigned char>(c);
  return number;
}

std::string NumberBytes(uint32_t number, size_t size) {
  std::string bytes;
  for (size_t i = size; i-- > 0;) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

std::string Chunk(std::string_view name, std::string_view content) {
  return std::string(name) + NumberBytes(static_cast<uint32_t>(content.size()), 4) + std::string(content);
}

// Takes the chunk at the front of `bytes`.
std::string_view TakeChunk(std::string_view& bytes) {
  const size_t length = bytes.size() < kChunkHead ? 0 : NumberAt(bytes, 4, 4);
  if (bytes.size() < kChunkHead || length > bytes.size() - kChunkHead) {
    Refuse("the MIDI file is broken off: its last part is shorter than it says");
  }
  const std::string_view content = bytes.substr(kChunkHead, length);
  bytes.remove_prefix(kChunkHead + length);
  return content;
}

MidiFile ParseHeader(std::string_view header) {
  if (header.size() < kHeaderSize) Refuse("the MIDI file is broken off in its first part");
  MidiFile file{.type = static_cast<int>(NumberAt(header, 0, 2)),
                .division = static_cast<int>(NumberAt(header, 4, 2)),
                .tracks = {}};
  if (file.type == 2) Refuse("the MIDI file is of type 2, which holds several songs; types 0 and 1 are read");
  if (file.type > 2) Refuse("the MIDI file is of the unknown type " + std::to_string(file.type));
  if ((file.division & 0x8000) != 0) {
    Refuse("the MIDI file counts its time in film frames (SMPTE), not in beats");
  }
  if (file.division == 0) Refuse("the MIDI file does not say how long a beat is");
  return file;
}

bool HasTwoDataBytes(uint8_t status) { return (status & 0xE0) != 0xC0; }

}  // namespace

MidiFile ParseMidiFile(std::string_view bytes) {
  if (!bytes.starts_with("MThd")) Refuse("it is no MIDI file: it does not begin with \"MThd\"");
  const std::string_view header = TakeChunk(bytes);
  MidiFile file = ParseHeader(header);
  const size_t announced = NumberAt(header, 2, 2);
  while (!bytes.empty() && file.tracks.size() < announced) {
    const bool isTrack = bytes.starts_with("MTrk");
    const std::string_view content = TakeChunk(bytes);
    if (isTrack) file.tracks.push_back(content);
  }
  if (file.tracks.empty()) Refuse("the MIDI file holds no track");
  return file;
}

std::optional<MidiEvent> MidiTrackEvents::Next() {
  if (ended_ || at_ >= track_.size()) return std::nullopt;
  time_ += TakeNumber();
  MidiEvent event{.time = time_, .status = running_};
  if (at_ < track_.size() && (track_[at_] & 0x80) != 0) event.status = TakeByte();
  if (event.status == 0) Refuse("a track of the MIDI file does not begin with an event");
  if (event.status < 0xF0) {
    running_ = event.status;
    event.first = TakeDataByte();
    if (HasTwoDataBytes(event.status)) event.second = TakeDataByte();
    return event;
  }
  if (event.status == kMidiMeta) {
    event.first = TakeByte();
  } else if (event.status != 0xF0 && event.status != 0xF7) {
    Refuse("a track of the MIDI file holds what is no event of a file");
  }
  event.bytes = TakeBytes();
  ended_ = event.IsMeta(kMetaEndOfTrack);
  return event;
}

uint8_t MidiTrackEvents::TakeByte() {
  if (at_ >= track_.size()) Refuse("a track of the MIDI file ends in the middle of an event");
  return static_cast<uint8_t>(track_[at_++]);
}

uint8_t MidiTrackEvents::TakeDataByte() {
  const uint8_t byte = TakeByte();
  if (byte > 0x7F) Refuse("a track of the MIDI file holds an event that lacks a byte");
  return byte;
}

int64_t MidiTrackEvents::TakeNumber() {
  int64_t number = 0;
  for (int i = 0; i < kLongestNumber; ++i) {
    const uint8_t byte = TakeByte();
    number = number << 7 | (byte & 0x7F);
    if (byte < 0x80) return number;
  }
  Refuse("a track of the MIDI file holds a number that is too long");
}

std::string_view MidiTrackEvents::TakeBytes() {
  const auto length = static_cast<size_t>(TakeNumber());
  if (length > track_.size() - at_) Refuse("a track of the MIDI file ends in the middle of an event");
  const std::string_view bytes = track_.substr(at_, length);
  at_ += length;
  return bytes;
}

void MidiTrackBytes::Add(const MidiEvent& event) {
  // A longer time than one number can hold is made up of several, with empty text events in between.
  for (; event.time - time_ > kLargestNumber; time_ += kLargestNumber) {
    AddNumber(kLargestNumber);
    bytes_ += {static_cast<char>(kMidiMeta), static_cast<char>(kMetaText), '\0'};
  }
  AddNumber(event.time - time_);
  time_ = event.time;
  bytes_ += static_cast<char>(event.status);
  if (event.status != 0xF0 && event.status != 0xF7) bytes_ += static_cast<char>(event.first);
  if (event.status < 0xF0) {
    if (HasTwoDataBytes(event.status)) bytes_ += static_cast<char>(event.second);
    return;
  }
  AddNumber(static_cast<int64_t>(event.bytes.size()));
  bytes_ += event.bytes;
}

void MidiTrackBytes::AddNumber(int64_t value) {
  for (int shift = 7 * (kLongestNumber - 1); shift > 0; shift -= 7) {
    if (value >> shift != 0) bytes_ += static_cast<char>((value >> shift & 0x7F) | 0x80);
  }
  bytes_ += static_cast<char>(value & 0x7F);
}

std::string MidiFileBytes(int division, const MidiTrackBytes& track) {
  const std::string header =
      NumberBytes(0, 2) + NumberBytes(1, 2) + NumberBytes(static_cast<uint32_t>(division), 2);
  return Chunk("MThd", header) + Chunk("MTrk", track.Bytes());
}

}  // namespace trillomat
