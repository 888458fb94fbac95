#include "exchange/midi_melody.h"

#include <algorithm>
#include <cstdlib>

#include "core/number_text.h"
#include "core/tone.h"
#include "exchange/midi_lengths.h"
#include "exchange/midi_write.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr int64_t kTogether = kMidiUnits / 32;  // between the tones of a chord that is not struck at once
constexpr int64_t kLegato = kMidiUnits / 4;     // by which a tone may reach into the next one
// A tone that ends early by no more than this fraction of the time until the next one is meant to fill it.
constexpr int64_t kArticulation = 8;
constexpr size_t kMostElements = 100'000;
constexpr int64_t kLongestPause = kMidiUnits * 4 * int64_t{kMostElements};

[[noreturn]] void RefuseLength() {
  throw ReadFault(ReadFault::Kind::Quiet, "the melody comes to more than 100,000 tones and pauses");
}

// Whether `note` belongs to a voice below that of `sounding`, which began before it.
bool IsBeneath(const MidiNote& note, const MidiNote& sounding) {
  if (note.start >= sounding.end || note.key >= sounding.key) return false;
  const int64_t overlap = sounding.end - note.start;
  return overlap > kLegato || overlap * 2 >= note.end - note.start;
}

bool IsLower(const MidiNote& a, const MidiNote& b) { return a.key != b.key ? a.key < b.key : a.end < b.end; }

// Puts the tones of a voice on the lengths of a mode: as they are where each has such a length, else snapped
// to a grid.
class Fitting {
 public:
  Fitting(std::span<const MidiNote> voice, FormatMode mode)
      : voice_(voice.begin(), voice.end()), mode_(mode), lengths_(mode) {}

  void Run() {
    exact_ = IsExact();
    if (!exact_) SnapAll();
    for (size_t i = 0; i < voice_.size(); ++i) Place(i);
  }

  ElementList elements;
  std::vector<int> keys;  ///< MIDI keys of the elements, 0 for a pause

  void Tell(std::vector<std::string>& changes) const {
    const std::string mode(LimitsOf(mode_).caption);
    if (lost_ > 0) changes.push_back(Counted(lost_, "tone is", "tones are") + " too short for " + mode);
    if (split_ > 0) {
      changes.push_back(Counted(split_, "tone ends", "tones end") + " early: " + mode +
                        " has no such length");
    }
    if (moved_ > 0) {
      changes.push_back(Counted(moved_, "tone is", "tones are") + " drawn to the lengths of " + mode);
    }
  }

 private:
  // Whether every tone has a length of the mode, or one on the grid, and every pause can be filled.
  bool IsExact() const {
    int64_t time = 0;
    return std::all_of(voice_.begin(), voice_.end(), [&](const MidiNote& note) {
      const int64_t pause = note.start - time;
      time = note.end;
      return (lengths_.Has(note.end - note.start) ||
              Snapped(note.end - note.start) == note.end - note.start) &&
             lengths_.CanFill(pause);
    });
  }

  int64_t Snapped(int64_t time) const {
    const auto on = [time](int64_t grid) { return (time + grid / 2) / grid * grid; };
    const int64_t plain = on(lengths_.Grid());
    if (lengths_.TripletGrid() == 0) return plain;
    const int64_t triplet = on(lengths_.TripletGrid());
    return std::abs(triplet - time) < std::abs(plain - time) ? triplet : plain;
  }

  // Of tones that begin together then, the longest stays.
  void SnapAll() {
    std::vector<MidiNote> snapped;
    for (const MidiNote& note : voice_) {
      const MidiNote moved{Snapped(note.start), Snapped(note.end), note.key};
      if (moved.start != note.start || moved.end != note.end) ++moved_;
      if (snapped.empty() || moved.start > snapped.back().start) {
        snapped.push_back(moved);
        continue;
      }
      ++lost_;
      if (moved.end - moved.start > snapped.back().end - snapped.back().start) snapped.back() = moved;
    }
    voice_ = std::move(snapped);
  }

  void Place(size_t index) {
    const MidiNote& note = voice_[index];
    AddPauses(note.start - time_);
    const bool last = index + 1 == voice_.size();
    const int64_t sounds = std::max<int64_t>(1, note.end - time_);
    const int64_t lasts = last ? sounds : std::max(sounds, voice_[index + 1].start - time_);
    const MidiLength& length = LengthOf(sounds, lasts);
    Add(Tone("", 0, length.duration, length.extra), note.key);
    time_ += length.units;
  }

  // `sounds` is the length of the tone, `lasts` the time until the next one begins.
  const MidiLength& LengthOf(int64_t sounds, int64_t lasts) {
    if (exact_ && lengths_.Has(sounds)) return lengths_.Nearest(sounds);
    const int64_t gap = lasts - sounds;
    if (gap < lengths_.Grid() || gap * kArticulation <= lasts) sounds = lasts;
    const MidiLength& nearest = lengths_.Nearest(sounds);
    if (std::abs(nearest.units - sounds) * 2 <= lengths_.Grid()) return nearest;
    const MidiLength& length = lengths_.LongestIn(sounds);
    if (length.units < sounds) ++split_;
    return length;
  }

  void AddPauses(int64_t units) {
    if (units > kLongestPause) RefuseLength();
    for (const MidiLength& length : lengths_.Filling(units)) {
      Add(Pause(length.duration, length.extra), 0);
      time_ += length.units;
    }
  }

  void Add(const Element& element, int key) {
    if (elements.size() >= kMostElements) RefuseLength();
    elements.push_back(element);
    keys.push_back(key);
  }

  std::vector<MidiNote> voice_;
  FormatMode mode_;
  MidiLengths lengths_;
  bool exact_ = false;
  int64_t time_ = 0;  // units that the elements fill so far
  size_t lost_ = 0;
  size_t split_ = 0;
  size_t moved_ = 0;
};

// The internal octave of a key. Divided before it is subtracted, because division rounds towards zero.
int OctaveOf(int key) { return key / 12 - kMidiLowestC / 12; }

void TellMove(int octaves, std::vector<std::string>& changes) {
  if (octaves == 0) return;
  changes.push_back("the melody is moved " + std::string(octaves > 0 ? "up" : "down") + " by " +
                    Counted(static_cast<size_t>(std::abs(octaves)), "octave", "octaves"));
}

// By how many octaves a melody from the octave `lowest` to `highest` moves as a whole; 0 where it does not
// fit.
int WholeMove(const ModeLimits& limits, int lowest, int highest) {
  if (highest - lowest > limits.highestOctave - limits.lowestOctave) return 0;
  if (lowest < limits.lowestOctave) return limits.lowestOctave - lowest;
  return std::min(0, limits.highestOctave - highest);
}

// Gives the tones of the melody the note and octave of their keys.
void SetKeys(const std::vector<int>& keys, FormatMode mode, MidiMelody& melody) {
  const ModeLimits& limits = LimitsOf(mode);
  std::vector<int> octaves;
  for (size_t i = 0; i < keys.size(); ++i) {
    if (!IsPause(melody.elements[i])) octaves.push_back(OctaveOf(keys[i]));
  }
  const auto [lowest, highest] = std::minmax_element(octaves.begin(), octaves.end());
  const int move = WholeMove(limits, *lowest, *highest);
  TellMove(move, melody.changes);
  size_t folded = 0;
  for (size_t i = 0; i < keys.size(); ++i) {
    Element& element = melody.elements[i];
    if (IsPause(element)) continue;
    const int octave = OctaveOf(keys[i]) + move;
    element.SetNote(kPianoTones.at(static_cast<size_t>(keys[i] % 12)));
    element.octave = static_cast<int16_t>(std::clamp<int>(octave, limits.lowestOctave, limits.highestOctave));
    if (element.octave != octave) ++folded;
  }
  if (folded == 0) return;
  melody.changes.push_back(Counted(folded, "tone is", "tones are") + " moved into the octaves of " +
                           std::string(limits.caption));
}

}  // namespace

std::vector<MidiNote> HighestVoice(std::span<const MidiNote> notes) {
  std::vector<MidiNote> voice;
  while (!notes.empty()) {
    const auto end = std::find_if(notes.begin(), notes.end(), [&](const MidiNote& note) {
      return note.start - notes.front().start > kTogether;
    });
    const MidiNote highest = *std::max_element(notes.begin(), end, IsLower);
    notes = notes.subspan(static_cast<size_t>(end - notes.begin()));
    if (!voice.empty()) {
      if (IsBeneath(highest, voice.back())) continue;
      voice.back().end = std::min(voice.back().end, highest.start);
    }
    voice.push_back(highest);
  }
  return voice;
}

MidiMelody MelodyOf(std::span<const MidiNote> voice, FormatMode mode) {
  Fitting fitting(voice, mode);
  fitting.Run();
  MidiMelody melody{.elements = std::move(fitting.elements), .changes = {}};
  fitting.Tell(melody.changes);
  SetKeys(fitting.keys, mode, melody);
  return melody;
}

}  // namespace trillomat
