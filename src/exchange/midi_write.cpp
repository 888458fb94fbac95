#include "exchange/midi_write.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/tone.h"
#include "exchange/midi_file.h"

namespace trillomat {
namespace {

constexpr int kHighestKey = 127;
constexpr uint8_t kVelocity = 64;  // of a keyboard that does not tell how hard it is struck
constexpr int64_t kMicrosecondsInMinute = 60'000'000;
constexpr int32_t kSlowest = 4;  // beats per minute: three bytes hold no longer beat
constexpr int32_t kFastest = 60'000'000;

// The program plays tones below octave 0 as those of octave 0.
int64_t KeyOf(const Element& tone) {
  return kMidiLowestC + 12 * int64_t{std::max<int16_t>(tone.octave, 0)} + SemitoneOf(tone.Note());
}

int64_t TicksOf(const Element& element) {
  return std::max(0LL, std::llround(double{element.duration} * double{element.extra} * kMidiDivision));
}

class Writer {
 public:
  void AddSong(const Song& song) {
    track_.Add({.status = kMidiMeta, .first = kMetaTrackName, .bytes = song.info.name});
    AddTempo(song.info.bpm == 0 ? kDefaultTempo : song.info.bpm);
    for (const Element& element : song.elements) {
      if (IsPause(element)) {
        time_ += TicksOf(element);
      } else if (SemitoneOf(element.Note()) >= 0) {
        AddTone(element);
      }
    }
    track_.Add({.time = time_, .status = kMidiMeta, .first = kMetaEndOfTrack});
  }

  WrittenMidi Take() {
    if (lowered_ > 0) {
      changes_.push_back(Counted(lowered_, "tone is", "tones are") + " too high for MIDI and written lower");
    }
    return {MidiFileBytes(kMidiDivision, track_), std::move(changes_)};
  }

 private:
  void AddTempo(int32_t bpm) {
    const int32_t written = std::clamp(bpm, kSlowest, kFastest);
    if (written != bpm) {
      changes_.push_back("the tempo of " + std::to_string(bpm) + " is written as " + std::to_string(written));
    }
    const int64_t beat = std::llround(static_cast<double>(kMicrosecondsInMinute) / written);
    const std::string bytes{static_cast<char>(beat >> 16), static_cast<char>(beat >> 8),
                            static_cast<char>(beat)};
    track_.Add({.status = kMidiMeta, .first = kMetaTempo, .bytes = bytes});
  }

  void AddTone(const Element& tone) {
    int64_t key = KeyOf(tone);
    if (key > kHighestKey) {
      ++lowered_;
      key -= (key - kHighestKey + 11) / 12 * 12;
    }
    const auto number = static_cast<uint8_t>(key);
    track_.Add({.time = time_, .status = kMidiNoteOn, .first = number, .second = kVelocity});
    time_ += TicksOf(tone);
    track_.Add({.time = time_, .status = kMidiNoteOff, .first = number, .second = kVelocity});
  }

  MidiTrackBytes track_;
  int64_t time_ = 0;  // ticks
  size_t lowered_ = 0;
  std::vector<std::string> changes_;
};

}  // namespace

WrittenMidi WriteMidi(const Song& song) {
  Writer writer;
  writer.AddSong(song);
  return writer.Take();
}

}  // namespace trillomat
