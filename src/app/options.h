// The command line of the window program, and what it says on standard output and standard error.
#pragma once

#include <QApplication>
#include <QString>
#include <filesystem>
#include <optional>
#include <string_view>

namespace trillomat {

struct Options {
  std::filesystem::path file;
  std::filesystem::path screenshot;
};

/// What the arguments ask for, file names in the system's own bytes; argc and argv are what the toolkit left
/// of them. Nothing when the program ends with `status` instead: after help or version, or when they are
/// wrong.
std::optional<Options> ParseOptions(const QApplication& app, int argc, char** argv, int& status);

/// Writes a line to standard error, escaped where that is a terminal.
void SayError(std::string_view utf8);

}  // namespace trillomat
