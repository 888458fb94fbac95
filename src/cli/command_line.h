// The command line: what can be said, and which command that calls.
#pragma once

#include <string>
#include <vector>

namespace trillomat {

class ProgressLine;

/// Does what `arguments` (UTF-8, without the program's name) ask for. Results go to standard output,
/// the log and refusals to standard error. Returns the exit status: 0 done, 1 the input was refused or
/// the output not written, 2 wrong usage, 141 standard output is a pipe that nobody reads. `progress` is
/// cleared in the end; null where nobody would see it.
int RunCommandLine(std::vector<std::string> arguments, ProgressLine* progress = nullptr);

}  // namespace trillomat
