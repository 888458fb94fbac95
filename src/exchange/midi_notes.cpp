#include "exchange/midi_notes.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>

#include "core/ascii.h"
#include "core/code_page.h"
#include "exchange/midi_file.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr size_t kMostNotes = 1'000'000;
constexpr int kChannels = 16;

// A text of the file on one line: UTF-8 where it is that, as files of today have it, or else Windows-1252.
std::string NameOf(std::string_view bytes) {
  const std::string line = OnOneLine(FromUtf8(bytes).value_or(std::string(bytes)), ' ');
  return std::string(Trimmed(line));
}

// The notes of one track, channel by channel.
class TrackNotes {
 public:
  explicit TrackNotes(int64_t division) : division_(division) {}

  void Take(const MidiEvent& event) {
    last_ = Units(event.time);
    if (event.Kind() == kMidiNoteOn && event.second > 0) {
      Begin(event.Channel(), event.first);
    } else if (event.Kind() == kMidiNoteOn || event.Kind() == kMidiNoteOff) {
      End(event.Channel(), event.first);
    }
  }

  void EndAll() {
    for (const auto& [place, sounding] : sounding_) {
      for (const size_t index : sounding) notes_.at(place.first)[index].end = last_;
    }
  }

  size_t Count() const { return count_; }
  std::vector<MidiNote>& Of(int channel) { return notes_.at(static_cast<size_t>(channel)); }

 private:
  int64_t Units(int64_t ticks) const { return (ticks * kMidiUnits + division_ / 2) / division_; }

  void Begin(int channel, int key) {
    std::vector<MidiNote>& notes = Of(channel);
    sounding_[{static_cast<size_t>(channel), key}].push_back(notes.size());
    notes.push_back({last_, last_, key});
    ++count_;
  }

  // Where a key sounds more than once, the note ends that began first.
  void End(int channel, int key) {
    const auto found = sounding_.find({static_cast<size_t>(channel), key});
    if (found == sounding_.end()) return;
    Of(channel)[found->second.front()].end = last_;
    found->second.pop_front();
    if (found->second.empty()) sounding_.erase(found);
  }

  int64_t division_;
  int64_t last_ = 0;  // units
  size_t count_ = 0;
  std::array<std::vector<MidiNote>, kChannels> notes_;
  std::map<std::pair<size_t, int>, std::deque<size_t>> sounding_;
};

// The first tempo in time, and how often it changes then.
class Tempos {
 public:
  void Take(const MidiEvent& event) {
    if (!event.IsMeta(kMetaTempo) || event.bytes.size() != 3) return;
    int32_t beat = 0;
    for (const char c : event.bytes) beat = beat << 8 | static_cast<unsigned char>(c);
    if (beat > 0) all_.emplace(event.time, beat);
  }

  void Tell(MidiContents& contents) const {
    for (auto each = all_.begin(); each != all_.end(); ++each) {
      if (!contents.beat) contents.beat = each->second;
      if (each != all_.begin() && each->second != std::prev(each)->second) ++contents.laterTempos;
    }
  }

 private:
  std::multimap<int64_t, int32_t> all_;  // microseconds in a beat, by ticks
};

class ContentsReader {
 public:
  ContentsReader(const MidiFile& file, const Services& services) : file_(file), services_(services) {}

  MidiContents Read() {
    for (size_t i = 0; i < file_.tracks.size(); ++i) ReadTrack(i);
    tempos_.Tell(contents_);
    if (contents_.tracks.empty()) Refuse("the MIDI file holds no notes");
    return std::move(contents_);
  }

 private:
  [[noreturn]] static void Refuse(const std::string& why) { throw ReadFault(ReadFault::Kind::Quiet, why); }

  void ReadTrack(size_t index) {
    TrackNotes notes(file_.division);
    std::string name;
    MidiTrackEvents events(file_.tracks[index]);
    while (const std::optional<MidiEvent> event = events.Next()) {
      if (!services_.pump.PumpEvents()) Refuse(std::string(kProgramEnding));
      notes.Take(*event);
      tempos_.Take(*event);
      if (event->status < 0xF0 && event->Kind() == kMidiPitchBend) ++contents_.bends;
      if (event->IsMeta(kMetaTrackName) && name.empty()) name = NameOf(event->bytes);
      if (notes.Count() + count_ > kMostNotes) Refuse("the MIDI file holds more than 1,000,000 notes");
    }
    notes.EndAll();
    count_ += notes.Count();
    if (index == 0) contents_.name = name;
    if (file_.tracks.size() == 1) {
      AddChannels(notes);
    } else {
      AddTrack(index, name, notes);
    }
  }

  void AddChannels(TrackNotes& notes) {
    for (int channel = 0; channel < kChannels; ++channel) {
      const auto number = static_cast<size_t>(channel) + 1;
      Add({.number = number,
           .name = "",
           .notes = std::move(notes.Of(channel)),
           .drums = channel == kMidiDrumChannel});
    }
  }

  void AddTrack(size_t index, const std::string& name, TrackNotes& notes) {
    MidiTrack track{.number = index + 1, .name = name, .notes = {}};
    for (int channel = 0; channel < kChannels; ++channel) {
      const std::vector<MidiNote>& own = notes.Of(channel);
      if (channel != kMidiDrumChannel) track.notes.insert(track.notes.end(), own.begin(), own.end());
    }
    std::vector<MidiNote>& drums = notes.Of(kMidiDrumChannel);
    track.drums = track.notes.empty();
    track.leftDrums = track.drums ? 0 : drums.size();
    if (track.drums) track.notes = std::move(drums);
    Add(std::move(track));
  }

  void Add(MidiTrack track) {
    if (track.notes.empty()) return;
    std::stable_sort(track.notes.begin(), track.notes.end(),
                     [](const MidiNote& a, const MidiNote& b) { return a.start < b.start; });
    contents_.tracks.push_back(std::move(track));
  }

  const MidiFile& file_;
  const Services& services_;
  MidiContents contents_;
  Tempos tempos_;
  size_t count_ = 0;
};

}  // namespace

MidiContents ReadMidiContents(std::string_view bytes, const Services& services) {
  const MidiFile file = ParseMidiFile(bytes);
  return ContentsReader(file, services).Read();
}

}  // namespace trillomat
