// The command line of the window program, and what it says on standard output and standard error.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <filesystem>
#include <optional>
#include <string_view>

namespace trillomat {

/// What the program was started for; a path is empty where none was given.
struct Options {
  std::filesystem::path file;        ///< to be opened
  std::filesystem::path screenshot;  ///< the picture to save, after which the program ends
};

/// What the arguments ask for; file names are in the system's own bytes. argc and argv are the arguments that
/// the toolkit has left. Nothing when the program is to end with `status` instead: after help or version, or
/// when the arguments are wrong.
std::optional<Options> ParseOptions(const QCoreApplication& app, int argc, char** argv, int& status);

/// Writes a line to standard error, escaped where that is a terminal.
void SayError(std::string_view utf8);

}  // namespace trillomat
