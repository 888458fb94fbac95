#include <iostream>

#include "cli/command_line.h"
#include "cli/console.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  trillomat::MakeStreamsBinary();
  return trillomat::RunCommandLine(trillomat::Utf8Arguments(argc, argv));
}
