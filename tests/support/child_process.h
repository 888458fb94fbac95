// Runs part of a test in a process of its own, which can be killed or limited without harm to the test.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace trillomat {

class ChildProcess {
 public:
  /// Starts `body`, whose result (0 to 255) is the exit status.
  explicit ChildProcess(const std::function<int()>& body) : id_(fork()) {
    if (id_ == 0) _exit(body());
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (id_ > 0) Kill();
  }

  /// Kills it (SIGKILL). False when it had ended by itself.
  bool Kill() {
    kill(id_, SIGKILL);
    return WaitFor() == -SIGKILL;
  }

  /// Its exit status, or minus the signal that ended it.
  int WaitFor() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }

 private:
  pid_t id_;
};

}  // namespace trillomat
