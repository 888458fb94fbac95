#include "exchange/midi_read.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/number_text.h"
#include "exchange/midi_melody.h"
#include "exchange/midi_notes.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr int32_t kDefaultBeat = 500'000;  // microseconds, where a file does not tell
constexpr double kMicrosecondsInMinute = 60e6;

[[noreturn]] void Refuse(const std::string& why) { throw ReadFault(ReadFault::Kind::Quiet, why); }

std::vector<MidiTrackTitle> TitlesOf(const std::vector<MidiTrack>& tracks) {
  std::vector<MidiTrackTitle> titles;
  titles.reserve(tracks.size());
  for (const MidiTrack& track : tracks) {
    titles.push_back({track.number, track.name, track.notes.size(), track.drums});
  }
  return titles;
}

const MidiTrack& Chosen(const std::vector<MidiTrack>& tracks, std::optional<size_t> number) {
  if (number) {
    const auto found = std::find_if(tracks.begin(), tracks.end(),
                                    [&](const MidiTrack& track) { return track.number == *number; });
    if (found == tracks.end()) Refuse("the MIDI file has no notes in track " + std::to_string(*number));
    return *found;
  }
  const auto most =
      std::max_element(tracks.begin(), tracks.end(), [](const MidiTrack& a, const MidiTrack& b) {
        return a.drums != b.drums ? a.drums : a.notes.size() < b.notes.size();
      });
  if (most->drums) Refuse("the MIDI file holds nothing but drums");
  return *most;
}

// The tempo that `mode` has, in beats per minute.
int32_t TempoOf(const MidiContents& contents, FormatMode mode, std::vector<std::string>& dropped) {
  const double told = kMicrosecondsInMinute / contents.beat.value_or(kDefaultBeat);
  const auto rounded = static_cast<int32_t>(std::llround(told));
  const ModeLimits& limits = LimitsOf(mode);
  const int32_t tempo = std::clamp(rounded, limits.lowestTempo, limits.highestTempo);
  if (tempo != rounded) {
    dropped.push_back("the tempo of " + std::to_string(rounded) + " beats per minute becomes " +
                      std::to_string(tempo));
  }
  return tempo;
}

// What is left out of the file beside the tones of the voice.
void TellLeftOut(const MidiContents& contents, const MidiTrack& track, size_t voice,
                 std::vector<std::string>& dropped) {
  const auto tell = [&dropped](size_t count, std::string_view one, std::string_view more) {
    if (count > 0) dropped.push_back(Counted(count, one, more) + " left out");
  };
  tell(contents.tracks.size() - 1, "other track is", "other tracks are");
  tell(track.leftDrums, "note of drums is", "notes of drums are");
  tell(track.notes.size() - voice, "note of a lower voice is", "notes of lower voices are");
  tell(contents.laterTempos, "later tempo is", "later tempos are");
  tell(contents.bends, "bend of the pitch is", "bends of the pitch are");
}

SongInfo InfoOf(const MidiContents& contents, const MidiTrack& track) {
  SongInfo info;
  info.name = contents.name.empty() ? track.name : contents.name;
  return info;
}

}  // namespace

MidiRead ReadMidiFile(std::string_view bytes, FormatMode mode, std::optional<size_t> track,
                      const ReadRecord& before, const Services& services) {
  MidiRead midi;
  midi.read = RunReader("ReadMidiFile", bytes, before, services, [&](Reading& reading) {
    const MidiContents contents = ReadMidiContents(bytes, services);
    midi.tracks = TitlesOf(contents.tracks);
    const MidiTrack& chosen = Chosen(contents.tracks, track);
    midi.track = chosen.number;
    const std::vector<MidiNote> voice = HighestVoice(chosen.notes);
    MidiMelody melody = MelodyOf(voice, mode);
    TellLeftOut(contents, chosen, voice.size(), midi.dropped);
    std::move(melody.changes.begin(), melody.changes.end(), std::back_inserter(midi.dropped));
    reading.record.info = InfoOf(contents, chosen);
    reading.record.info.bpm = TempoOf(contents, mode, midi.dropped);
    reading.elements = std::move(melody.elements);
  });
  return midi;
}

}  // namespace trillomat
