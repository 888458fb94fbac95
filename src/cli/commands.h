// The commands of the command line. Each throws Refused or WrongUsage when it cannot be done.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/progress.h"
#include "core/codec.h"
#include "core/format_mode.h"
#include "core/services.h"
#include "files/file_store.h"

namespace trillomat {

/// Everything that a command line can say; each command looks at its own part.
struct Invocation {
  std::filesystem::path in;
  std::filesystem::path out;
  std::vector<std::filesystem::path> inputs;  ///< of commands that take many
  std::filesystem::path toFolder;             ///< gets a file for each of them
  std::optional<FormatMode> mode;             ///< of paths whose name does not tell
  bool verbose = false;
  bool tidy = false;    ///< the text, before it is read
  bool report = false;  ///< what an export leaves out
  bool json = false;
  bool force = false;  ///< replaces a file, and writes more sound than anybody means to
  bool adaptT68i = false;
  bool trace = false;
  std::string from;  ///< "rtttl", "emelody", "melody" or "midi"
  std::string to;    ///< an option of kExportTargets, one of kModeNames, or "midi"
  std::optional<RtttlSpelling> spelling;
  std::string output = "wave";  ///< "wave", "beep" or "midi"
  std::optional<size_t> track;  ///< of a MIDI file, as MidiTrackTitle counts
  int16_t octaves = 0;
  int32_t endless = 1;  ///< how often an endless block is played
};

struct CommandServices : Services {
  FileStore& store;              ///< of all files, so that there is one that knows what is unfinished
  Progress* progress = nullptr;  ///< stands in `pump` where somebody watches

  /// As Progress does.
  void BeginFile(const std::filesystem::path& file, size_t number, size_t of) const {
    if (progress != nullptr) progress->BeginFile(file, number, of);
  }
  void Begin(std::string_view part, const std::filesystem::path& file, size_t steps = 0,
             size_t skipped = 0) const {
    if (progress != nullptr) progress->Begin(part, file, steps, skipped);
  }
  void Tell(std::string_view part, std::string_view object = {}) const {
    if (progress != nullptr) progress->Tell(part, object);
  }
};

/// Prints the melody as a listing or as JSON.
void ShowCommand(const Invocation& call, const CommandServices& services);
/// Says of each file, and of each melody file in the folders, whether it reads, what tidying would change,
/// and which formats and phones hold it without loss. Throws Refused at the end when one did not read.
void CheckCommand(const Invocation& call, const CommandServices& services);
/// Reads one file and writes another, or many into a folder; any may be a MIDI file.
void ConvertCommand(const Invocation& call, const CommandServices& services);
/// Converts a pasted text, or a MIDI file, into a file.
void ImportCommand(const Invocation& call, const CommandServices& services);
/// Prints the Result of an export as it is: Windows-1252, lines ended by CR LF; of many, writes them into a
/// folder.
void ExportCommand(const Invocation& call, const CommandServices& services);
/// Moves a melody by octaves within the range of its own format.
void TransposeCommand(const Invocation& call, const CommandServices& services);
/// Plays until the end or until the pump says that the program is ending, or prints the trace.
void PlayCommand(const Invocation& call, const CommandServices& services);
/// Renders the melody into a WAV file.
void RenderCommand(const Invocation& call, const CommandServices& services);

}  // namespace trillomat
