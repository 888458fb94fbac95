#include <iostream>

#include "cli/command_line.h"
#include "cli/console.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  trillomat::PrepareStreams();
  try {
    return trillomat::RunCommandLine(trillomat::Utf8Arguments(argc, argv));
  } catch (const std::exception& exception) {
    std::cerr << "trillomat-cli: " << exception.what() << '\n';
    return 1;
  }
}
