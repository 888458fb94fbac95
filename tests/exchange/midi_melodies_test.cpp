// Whole melodies as MIDI: files with chords, triplets and several tracks, made together with the melody that
// they hold; and songs that are written and read again.
#include <gtest/gtest.h>

#include <random>

#include "core/tone.h"
#include "exchange/midi_read.h"
#include "exchange/midi_write.h"
#include "support/fakes.h"
#include "support/midi_bytes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

Element ToneOfKey(int key, float duration, float extra) {
  return Tone(kPianoTones.at(static_cast<size_t>(key % 12)), static_cast<int16_t>(key / 12 - 2), duration,
              extra);
}

// A piece of music in the making: what is written into the file, and what is to be read from it.
class Piece {
 public:
  explicit Piece(uint32_t seed) : random_(seed), division_(Pick({96, 120, 192, 480, 960})) {
    lead_.At(0, MidiName("Lead"));
    lead_.At(0, MidiTempo(60'000'000 / tempo_));
    for (int bar = 0; bar < 8; ++bar) AddBar();
  }

  // The file, with one track or with several, in any order.
  std::string File() {
    const bool running = Pick({0, 1}) == 1;
    if (Pick({0, 1}) == 1) return MidiBytes(0, division_, {lead_.Track(running)});
    std::vector<std::string> tracks{bass_.Track(running), drums_.Track(running)};
    tracks.insert(tracks.begin() + Pick({0, 1, 2}), lead_.Track(running));
    return MidiBytes(1, division_, tracks);
  }

  const ElementList& Expected() const { return expected_; }
  int Tempo() const { return tempo_; }

 private:
  int Pick(std::vector<int> from) { return from[random_() % from.size()]; }
  int Ticks(double beats) const { return static_cast<int>(std::lround(beats * division_)); }

  // Four beats, each a tone or a pause, two halves of a beat, or a triplet. One bar of a piece has a dotted
  // half.
  void AddBar() {
    bass_.Note(Ticks(beat_), Ticks(beat_ + 4), Pick({36, 40, 43}));
    for (int quarter = 0; quarter < 4; ++quarter)
      drums_.Note(Ticks(beat_ + quarter), Ticks(beat_ + quarter + 0.25), 36, 9);
    const double end = beat_ + 4;
    if (Pick({0, 1, 2}) == 0) AddTone(2, 1.5F);
    while (beat_ < end) AddBeat();
  }

  void AddBeat() {
    switch (Pick({0, 1, 2, 3, 4})) {
      case 0: return AddTone(1, 1);
      case 1: return AddPause();
      case 2:
        for (int i = 0; i < 3; ++i) AddTone(0.5F, kDurationExtras.back());
        return;
      case 3: AddTone(0.5F, 1.5F); return AddTone(0.25F, 1);
      default: AddTone(0.5F, 1); return AddTone(0.5F, 1);
    }
  }

  void AddTone(float duration, float extra) {
    const int key = 64 + static_cast<int>(random_() % 25);
    const double length = double{duration} * double{extra};
    AddNote(length, key);
    if (Pick({0, 1, 2}) == 0) {  // a chord beneath, which may last longer
      AddNote(length, key - 4);
      AddNote(length * Pick({1, 2}), key - 7);
    }
    expected_.push_back(ToneOfKey(key, duration, extra));
    beat_ += length;
  }

  void AddNote(double length, int key) { lead_.Note(Ticks(beat_), Ticks(beat_ + length), key); }

  // Never two pauses in a row, which would be read as one.
  void AddPause() {
    if (expected_.empty() || IsPause(expected_.back())) return AddTone(1, 1);
    expected_.push_back(Pause(1, 1));
    beat_ += 1;
  }

  std::mt19937 random_;
  int division_;
  int tempo_ = Pick({60, 100, 120, 150});
  double beat_ = 0;
  MidiTrackDraft lead_;
  MidiTrackDraft bass_;
  MidiTrackDraft drums_;
  ElementList expected_;
};

// A pause at the end only moves the end of the track; it is not read as an element.
ElementList WithoutLastPause(ElementList elements) {
  while (!elements.empty() && IsPause(elements.back())) elements.pop_back();
  return elements;
}

TEST(MidiMelodies, ComeOutOfChordsTripletsAndTracks) {
  for (uint32_t seed = 1; seed <= 20; ++seed) {
    Piece piece(seed);
    FakeServices fake;
    const MidiRead midi = ReadMidiFile(piece.File(), FormatMode::IMelody, {}, {}, fake.services);
    EXPECT_EQ(Described(midi.read.elements), Described(WithoutLastPause(piece.Expected()))) << seed;
    EXPECT_EQ(midi.read.record.info.bpm, piece.Tempo());
  }
}

// Tones of every length, and single pauses between.
ElementList RandomMelody(FormatMode mode, std::mt19937& random) {
  const ModeLimits& limits = LimitsOf(mode);
  ElementList elements;
  while (elements.size() < 60) {
    const auto octaves = static_cast<uint32_t>(limits.highestOctave - limits.lowestOctave + 1);
    Element element = Tone(kPianoTones.at(random() % 8),
                           static_cast<int16_t>(limits.lowestOctave + static_cast<int>(random() % octaves)),
                           kDurations.at(random() % kDurations.size()),
                           kDurationExtras.at(random() % kDurationExtras.size()));
    if (!Supports(element, mode)) continue;
    const bool pause = random() % 4 == 0 && !elements.empty() && !IsPause(elements.back());
    elements.push_back(pause ? Pause(element.duration, element.extra) : element);
  }
  return WithoutLastPause(elements);
}

TEST(MidiMelodies, ComeBackAsTheyWereWritten) {
  std::mt19937 random(1);
  for (const ModeLimits& limits : kModeLimits) {
    for (int i = 0; i < 20; ++i) {
      Song song{.elements = RandomMelody(limits.mode, random), .info = {}};
      song.info.name = "Caf\xE9";
      song.info.bpm = limits.forcedTempo.value_or(25 + static_cast<int>(random() % 876));
      const WrittenMidi written = WriteMidi(song);
      FakeServices fake;
      const MidiRead midi = ReadMidiFile(written.bytes, limits.mode, {}, {}, fake.services);
      EXPECT_EQ(Described(midi.read.elements), Described(song.elements));
      EXPECT_EQ(midi.read.record.info, song.info);
      EXPECT_TRUE(midi.dropped.empty() && written.changes.empty());
    }
  }
}

}  // namespace
}  // namespace trillomat
