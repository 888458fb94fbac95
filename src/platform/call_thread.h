// A thread for calls into the system that may take long or never return.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace trillomat {

/// Makes calls one after the other on a thread of its own, while its owner, which is one thread, waits for
/// them no longer than it wants. A call has to own or share whatever it uses, because it may return when
/// everything else is gone.
class CallThread {
 public:
  CallThread();
  CallThread(const CallThread&) = delete;
  CallThread& operator=(const CallThread&) = delete;
  /// Does not wait for a call that has not returned. All that were posted are still made, if the program runs
  /// long enough.
  ~CallThread();

  /// Adds `call`, which must not throw, to those that are to be made. False when the system gives no thread.
  bool Post(std::function<void()> call);
  /// Waits until every call has returned, but not beyond `deadline`. True when they have.
  bool IsIdle(std::chrono::steady_clock::time_point deadline = {}) const;

 private:
  struct Queue;

  std::shared_ptr<Queue> queue_;
  std::thread thread_;
};

}  // namespace trillomat
