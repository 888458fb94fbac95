// Starts two programs in turns and compares what their processes cost until their end.
//   starts ROUNDS PROGRAM... -- PROGRAM...
//     prints the ratio of the processor time of their best starts
//   starts ROUNDS --window PROGRAM... -- PROGRAM...
//     the same for programs with a window, which are ended when it is up, and the ratio of their resident
//     memory
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

struct Cost {
  double microseconds = std::numeric_limits<double>::infinity();
  double kilobytes = microseconds;
};

/// Long enough for a window to be painted and its program to come to rest.
constexpr useconds_t kUntilUp = 2'500'000;

double ResidentKilobytes(pid_t process) {
  std::ifstream lines("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("VmRSS:")) return std::stod(line.substr(line.find(':') + 1));
  }
  return std::numeric_limits<double>::infinity();
}

double Microseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
}

Cost CostOfStart(const std::vector<char*>& command, bool window) {
  const pid_t process = vfork();
  if (process == 0) {
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execv(command.front(), command.data());
    _exit(127);
  }
  Cost cost;
  if (window) {
    usleep(kUntilUp);
    cost.kilobytes = ResidentKilobytes(process);
    kill(process, SIGKILL);
  }
  int status = 0;
  rusage usage{};
  wait4(process, &status, 0, &usage);
  const bool asExpected = window ? WIFSIGNALED(status) : WIFEXITED(status) && WEXITSTATUS(status) == 0;
  if (!asExpected) {
    std::fprintf(stderr, "starts: %s did not run\n", command.front());
    std::exit(1);
  }
  cost.microseconds = Microseconds(usage.ru_utime) + Microseconds(usage.ru_stime);
  return cost;
}

void KeepBest(Cost& best, const Cost& cost) {
  best.microseconds = std::min(best.microseconds, cost.microseconds);
  best.kilobytes = std::min(best.kilobytes, cost.kilobytes);
}

// As execv wants it, with a null pointer at its end.
std::vector<char*> CommandOf(char** begin, char** end) {
  std::vector<char*> command(begin, end);
  command.push_back(nullptr);
  return command;
}

}  // namespace

int main(int argc, char** argv) {
  const bool window = argc > 2 && std::string(argv[2]) == "--window";
  char** const first = argv + (window ? 3 : 2);
  char** const end = argv + argc;
  char** const parting = std::find(first, end, std::string("--"));
  if (argc < 4 || parting == first || end - parting < 2) {
    std::fputs("usage: starts ROUNDS [--window] PROGRAM... -- PROGRAM...\n", stderr);
    return 2;
  }
  Cost work;
  Cost yardstick;
  for (int rounds = std::stoi(argv[1]); rounds > 0; --rounds) {
    KeepBest(work, CostOfStart(CommandOf(first, parting), window));
    KeepBest(yardstick, CostOfStart(CommandOf(parting + 1, end), window));
  }
  std::printf("%s\t%.3f\t%.4g us\n", window ? "window-time" : "start",
              work.microseconds / yardstick.microseconds, work.microseconds);
  if (window) {
    std::printf("window-memory\t%.3f\t%.1f MB of %.1f\n", work.kilobytes / yardstick.kilobytes,
                work.kilobytes / 1024, yardstick.kilobytes / 1024);
  }
}
