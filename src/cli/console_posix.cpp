#include "cli/console.h"

#include <fcntl.h>
#include <unistd.h>

namespace trillomat {

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

// What is opened takes the lowest number that is free. Opened for the other direction it fails in use.
void PrepareStreams() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(number, F_GETFD) < 0) open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace trillomat
