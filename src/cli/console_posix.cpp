#include "cli/console.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
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

size_t ErrorColumns() {
  winsize size{};
  const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : kUsualColumns;
}

bool IsErrorWatched() {
  struct stat output {};
  return isatty(STDERR_FILENO) == 1 && fstat(STDOUT_FILENO, &output) == 0 && !S_ISFIFO(output.st_mode) &&
         !S_ISSOCK(output.st_mode);
}

bool IsOutputAbandoned() {
  pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
  return poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

}  // namespace trillomat
