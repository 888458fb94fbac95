// How a command of the command line fails: it throws, and the program's end turns that into a line on
// standard error and the exit status.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace trillomat {

/// The input was refused or the output could not be written: exit status 1.
class Refused : public std::runtime_error {
 public:
  /// `extract` is what MarkedLine makes of the text that is to blame; empty where there is none.
  explicit Refused(const std::string& why, std::string extract = {})
      : std::runtime_error(why), extract_(std::move(extract)) {}

  const std::string& Extract() const { return extract_; }

 private:
  std::string extract_;
};

/// The command line asks for what does not exist: exit status 2.
class WrongUsage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Whoever read what is printed has gone: nothing to complain of.
class ClosedPipe : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Says on standard error what failed.
void Complain(const std::exception& failure);

}  // namespace trillomat
