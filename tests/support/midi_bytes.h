// MIDI files made by hand for the tests, byte by byte: nothing here is the program's own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

inline std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

inline std::string BigEndian(uint64_t number, int size) {
  std::string text;
  for (int i = size - 1; i >= 0; --i) text += static_cast<char>(number >> (8 * i));
  return text;
}

inline std::string MidiChunk(std::string_view name, const std::string& content) {
  return std::string(name) + BigEndian(content.size(), 4) + content;
}

inline std::string MidiBytes(int type, int division, const std::vector<std::string>& tracks) {
  std::string file =
      MidiChunk("MThd", BigEndian(static_cast<uint64_t>(type), 2) + BigEndian(tracks.size(), 2) +
                            BigEndian(static_cast<uint64_t>(division), 2));
  for (const std::string& track : tracks) file += MidiChunk("MTrk", track);
  return file;
}

inline std::string MidiTempo(int microseconds) {
  return Bytes({0xFF, 0x51, 3}) + BigEndian(static_cast<uint64_t>(microseconds), 3);
}

inline std::string MidiName(const std::string& name) {
  return Bytes({0xFF, 3, static_cast<int>(name.size())}) + name;
}

/// A track of events that are told in any order.
class MidiTrackDraft {
 public:
  /// An event at a time in ticks, with all its bytes.
  void At(int time, std::string event) { events_[time].push_back(std::move(event)); }
  void Note(int start, int end, int key, int channel = 0) {
    At(start, Bytes({0x90 | channel, key, 80}));
    // At the same time, ends of notes come before beginnings.
    events_[end].insert(events_[end].begin(), Bytes({0x80 | channel, key, 0}));
  }
  /// Its bytes; with `running`, a status byte that is the same as the last one is left out.
  std::string Track(bool running = false) const {
    std::string bytes;
    int before = 0;
    char status = 0;
    for (const auto& [time, events] : events_) {
      for (const std::string& event : events) {
        bytes += Delta(time - before);
        before = time;
        const bool channel = static_cast<unsigned char>(event.front()) < 0xF0;
        bytes += running && channel && event.front() == status ? event.substr(1) : event;
        status = channel ? event.front() : '\0';
      }
    }
    return bytes + Bytes({0, 0xFF, 0x2F, 0});
  }

 private:
  static std::string Delta(int ticks) {
    std::string bytes(1, static_cast<char>(ticks % 128));
    for (ticks /= 128; ticks > 0; ticks /= 128) bytes.insert(0, 1, static_cast<char>(128 + ticks % 128));
    return bytes;
  }

  std::map<int, std::vector<std::string>> events_;
};

}  // namespace trillomat
