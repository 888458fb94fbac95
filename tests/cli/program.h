// Runs trillomat-cli as a child process and keeps what it said.
#pragma once

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "support/temp_folder.h"

namespace trillomat {

struct Ran {
  int status;
  std::string out;
  std::string err;
};

/// A command line, and what it should come to.
struct Case {
  std::string arguments;
  int status;
  testing::Matcher<std::string> out;
  testing::Matcher<std::string> err;
  std::string input = {};  ///< at standard input
};

/// A test that starts in an empty folder of its own.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { std::filesystem::current_path(folder_.Path()); }
  ~ProgramTest() override { std::filesystem::current_path(before_); }

  /// Runs the program with `arguments`, quoted as for a shell, and `input` at its standard input.
  /// `prefix` stands before the program on the shell's line.
  Ran Run(const std::string& arguments, const std::string& input = "", const std::string& prefix = "") const {
    streams_.Write("in", input);
    const std::string at = streams_.Path().string();
    // Arguments may hold a redirection of their own, which then wins.
    const std::string line =
        prefix + " '" CLI_PROGRAM "' <" + at + "/in >" + at + "/out 2>" + at + "/err " + arguments;
    const int status = std::system(line.c_str());  // NOLINT(concurrency-mt-unsafe): one thread
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, streams_.Read("out"), streams_.Read("err")};
  }

  /// Runs each case, after the command's name if there is one, and compares.
  void ExpectEach(const std::vector<Case>& cases, const std::string& command = "") const;

  TempFolder folder_;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  TempFolder streams_;
};

}  // namespace trillomat
