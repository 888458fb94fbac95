// How a command of the command line fails: it throws, and the program's end turns that into a line on
// standard error and the exit status.
#pragma once

#include <stdexcept>

namespace trillomat {

/// The input was refused or the output could not be written: exit status 1.
class Refused : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The command line asks for what does not exist: exit status 2.
class WrongUsage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace trillomat
