#include "cli/midi_files.h"

#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/output_check.h"
#include "cli/shown_line.h"
#include "composer/song_info.h"
#include "core/code_page.h"
#include "core/number_text.h"
#include "document/document.h"
#include "exchange/midi_read.h"
#include "exchange/midi_write.h"
#include "files/path_text.h"
#include "playback/played_elements.h"

namespace trillomat {
namespace {

void Tell(const std::filesystem::path& file, const std::vector<std::string>& sentences) {
  for (const std::string& each : sentences) {
    std::cerr << "trillomat-cli: " << Utf8OfPath(file) << ": " << ToUtf8(each) << '\n';
  }
}

// A MIDI file that becomes another passes through the mode that holds the most.
FormatMode ModeFor(const std::filesystem::path& file, std::optional<FormatMode> told) {
  return HasMidiName(file) ? FormatMode::IMelody : FormatOfPath(file, told);
}

// Which tracks there are to choose from, a line each.
std::string TracksText(const std::vector<MidiTrackTitle>& tracks) {
  std::string text;
  for (const MidiTrackTitle& track : tracks) {
    std::string line = "track " + std::to_string(track.number) + ": " + Counted(track.notes, "note", "notes");
    if (track.drums) line += " of drums";
    if (!track.name.empty()) line += ", \"" + ToUtf8(track.name) + '"';
    text += "  " + FittedTo(line, kUsualColumns - 3) + '\n';
  }
  return text;
}

}  // namespace

Song LoadMidi(const Invocation& call, FormatMode mode, const CommandServices& services) {
  services.Begin("reading", call.in);
  const std::string bytes = ReadInput(call.in, services.store);
  MidiRead midi = ReadMidiFile(bytes, mode, call.track, {}, services);
  if (!midi.read) {
    throw Refused(Utf8OfPath(call.in) + ": " + ToUtf8(midi.read.refusal->why), TracksText(midi.tracks));
  }
  Tell(call.in, midi.dropped);
  NormaliseStyleAndVolume(midi.read.record.info);
  return {std::move(midi.read.elements), std::move(midi.read.record.info)};
}

void SaveMidi(const Song& song, FormatMode mode, const std::filesystem::path& file,
              const CommandServices& services) {
  services.Begin("writing", file);
  auto played = PlayedElements(Document(song, mode), 1, services);
  if (!played) throw Refused(Utf8OfPath(file) + ": not written: " + played.Why().why);
  if (played->empty()) throw Refused(Utf8OfPath(file) + ": not written: there is nothing to hear");
  const WrittenMidi written = WriteMidi({*std::move(played), song.info});
  WriteOutput(file, services.store, written.bytes);
  Tell(file, written.changes);
}

void ConvertMidi(const Invocation& call, const CommandServices& services) {
  const bool fromMidi = HasMidiName(call.in);
  const bool toMidi = HasMidiName(call.out);
  if (call.track && !fromMidi) throw WrongUsage("--track is for MIDI files that are read");
  const FormatMode from = ModeFor(call.in, call.mode);
  const FormatMode to = ModeFor(call.out, call.mode);
  const RtttlSpelling spelling = SpellingOf(call, !toMidi && to == FormatMode::Rtttl);
  CheckOutput(call, fromMidi && toMidi, services.store);
  const LoadedSong loaded =
      fromMidi ? LoadedSong{LoadMidi(call, to, services), from} : LoadSong(call, services);
  if (toMidi) {
    SaveMidi(loaded.song, loaded.mode, call.out, services);
  } else {
    SaveSong(loaded.song, call.out, to, services, spelling);
  }
}

void ImportMidi(const Invocation& call, const CommandServices& services) {
  if (call.adaptT68i) throw WrongUsage("--adapt-t68i is for texts; a MIDI file is moved as its format asks");
  const FormatMode to = FormatOfPath(call.out, call.mode);
  CheckOutput(call, false, services.store);
  SaveSong(LoadMidi(call, to, services), call.out, to, services);
}

}  // namespace trillomat
