#include "cli/program.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

namespace trillomat {

namespace fs = std::filesystem;

std::string FileBytes(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

void MakeFile(const fs::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream << bytes;
}

ProgramTest::ProgramTest()
    : folder_(fs::temp_directory_path() / ("trillomat-cli-test-" + std::to_string(std::random_device{}()))) {
  fs::create_directories(folder_ / "run");
  fs::current_path(folder_ / "run");
}

ProgramTest::~ProgramTest() {
  fs::current_path(before_);
  fs::remove_all(folder_);
}

Ran ProgramTest::Run(const std::string& arguments, std::string_view input, const std::string& prefix) {
  MakeFile("../in", input);
  // Arguments may hold a redirection of their own, which then wins.
  const std::string line = prefix + " '" CLI_PROGRAM "' <../in >../out 2>../err " + arguments;
  const int status = std::system(line.c_str());  // NOLINT(concurrency-mt-unsafe): one thread
  return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
          .out = FileBytes("../out"),
          .err = FileBytes("../err")};
}

void ProgramTest::ExpectEach(const std::vector<Case>& cases) {
  for (const Case& example : cases) {
    SCOPED_TRACE(example.arguments);
    const Ran ran = Run(example.arguments, example.input);
    EXPECT_EQ(ran.status, example.status);
    EXPECT_THAT(ran.out, example.out);
    EXPECT_THAT(ran.err, example.err);
  }
}

std::vector<std::string> ProgramTest::Files() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(".")) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace trillomat
