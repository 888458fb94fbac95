// MIDI files on the command line: read as a melody, and written as it is heard.
#pragma once

#include <filesystem>

#include "cli/commands.h"
#include "core/song.h"

namespace trillomat {

/// The melody of the MIDI file call.in for `mode`, of the track call.track. What was left out goes to
/// standard error. Throws Refused when it cannot be read.
Song LoadMidi(const Invocation& call, FormatMode mode, const CommandServices& services);

/// Writes the song of a file of `mode` as a MIDI file. Throws Refused when it cannot be written; an existing
/// file is then as it was.
void SaveMidi(const Song& song, FormatMode mode, const std::filesystem::path& file,
              const CommandServices& services);

/// Reads one file and writes another, one of which at least is a MIDI file.
void ConvertMidi(const Invocation& call, const CommandServices& services);
/// Takes the melody out of a MIDI file of any name.
void ImportMidi(const Invocation& call, const CommandServices& services);

}  // namespace trillomat
