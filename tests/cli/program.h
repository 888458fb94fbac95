// Runs trillomat-cli as a child process and keeps what it said.
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

struct Ran {
  int status;
  std::string out;
  std::string err;
};

std::string FileBytes(const std::filesystem::path& file);
void MakeFile(const std::filesystem::path& file, std::string_view bytes);

/// A command line, and what it should come to.
struct Case {
  std::string arguments;
  int status;
  testing::Matcher<std::string> out;
  testing::Matcher<std::string> err;
  std::string_view input = {};  ///< at standard input
};

/// A test that starts in an empty folder of its own.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  /// Runs the program with `arguments`, quoted as for a shell, and `input` at its standard input.
  /// `prefix` stands before the program on the shell's line.
  static Ran Run(const std::string& arguments, std::string_view input = "", const std::string& prefix = "");

  /// Runs each case and compares.
  static void ExpectEach(const std::vector<Case>& cases);

  /// The names of the files in the folder, sorted.
  static std::vector<std::string> Files();

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  std::filesystem::path folder_;
};

}  // namespace trillomat
