#include <iostream>
#include <optional>

#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/terminal_buffer.h"
#include "platform/terminal.h"

namespace {

int RunOnStandardStreams(int argc, char** argv) {
  using namespace trillomat;
  std::optional<TerminalBuffer> output;
  std::optional<TerminalBuffer> error;
  if (IsTerminal(StandardStream::Output)) output.emplace(std::cout);
  if (IsTerminal(StandardStream::Error)) error.emplace(std::cerr);
  return RunCommandLine(Utf8Arguments(argc, argv));
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  trillomat::PrepareStreams();
  try {
    return RunOnStandardStreams(argc, argv);
  } catch (const std::exception& exception) {
    std::cerr << "trillomat-cli: " << exception.what() << '\n';
    return 1;
  }
}
