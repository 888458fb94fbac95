// The commands of the command line. Each throws Refused or WrongUsage when it cannot be done.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "core/workspace.h"

namespace trillomat {

/// Everything that a command line can say; each command looks at its own part.
struct Invocation {
  std::filesystem::path in;
  std::filesystem::path out;
  std::optional<FormatMode> mode;  ///< of paths whose name does not tell
  bool verbose = false;
  bool json = false;
  bool force = false;
  bool adaptT68i = false;
  bool trace = false;
  std::string from;             ///< "rtttl", "emelody" or "melody"
  std::string to;               ///< an option of kExportTargets
  std::string output = "wave";  ///< "wave", "beep" or "midi"
  int16_t octaves = 0;
  int32_t endless = 1;  ///< how often an endless block is played
};

/// Prints the melody as a listing or as JSON.
void ShowCommand(Workspace& ws, const Invocation& call);
/// Reads one file and writes another.
void ConvertCommand(Workspace& ws, const Invocation& call);
/// Converts a pasted text into a file.
void ImportCommand(Workspace& ws, const Invocation& call);
/// Prints the Result of an export as it is: Windows-1252, lines ended by CR LF.
void ExportCommand(Workspace& ws, const Invocation& call);
/// Moves a melody by octaves within the range of its own format.
void TransposeCommand(Workspace& ws, const Invocation& call);
/// Plays until the end or until the pump of `ws` says that the program is ending, or prints the trace.
void PlayCommand(Workspace& ws, const Invocation& call);
/// Renders the melody into a WAV file.
void RenderCommand(Workspace& ws, const Invocation& call);

}  // namespace trillomat
