#include "platform/call_thread.h"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <system_error>
#include <utility>

namespace trillomat {
namespace {

// At the end of a program the C library writes out all open files, and would wait for a call that hangs with
// a device open. So the program ends without that.
void EndWithoutWaiting() {
#ifdef __GLIBC__
  const auto end = [](int status, void* /*unused*/) {
    std::fflush(stdout);
    std::fflush(stderr);
    std::_Exit(status);
  };
  on_exit(end, nullptr);
#endif
}

}  // namespace

/// Shared with the thread, which may outlive the rest.
struct CallThread::Queue {
  void Run();

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::function<void()>> calls;  ///< the first is being made
  bool ending = false;
};

void CallThread::Queue::Run() {
  std::unique_lock lock(mutex);
  while (true) {
    changed.wait(lock, [this] { return ending || !calls.empty(); });
    if (calls.empty()) return;
    auto call = std::exchange(calls.front(), nullptr);
    lock.unlock();
    call();
    call = nullptr;
    lock.lock();
    calls.pop_front();
    changed.notify_all();
  }
}

CallThread::CallThread() : queue_(std::make_shared<Queue>()) {}

CallThread::~CallThread() {
  if (!thread_.joinable()) return;
  {
    const std::scoped_lock lock(queue_->mutex);
    queue_->ending = true;
  }
  queue_->changed.notify_all();
  if (IsIdle()) {
    thread_.join();
  } else {
    thread_.detach();
    EndWithoutWaiting();
  }
}

bool CallThread::Post(std::function<void()> call) {
  try {
    if (!thread_.joinable()) thread_ = std::thread([queue = queue_] { queue->Run(); });
  } catch (const std::system_error&) {
    return false;
  }
  const std::scoped_lock lock(queue_->mutex);
  queue_->calls.push_back(std::move(call));
  queue_->changed.notify_all();
  return true;
}

bool CallThread::IsIdle(std::chrono::steady_clock::time_point deadline) const {
  std::unique_lock lock(queue_->mutex);
  return queue_->changed.wait_until(lock, deadline, [this] { return queue_->calls.empty(); });
}

}  // namespace trillomat
