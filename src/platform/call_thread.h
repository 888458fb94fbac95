// A thread for calls into the system that may take long or never return.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace trillomat {

/// Makes calls one after the other, while its owner, which is one thread, waits for them no longer than it
/// likes. What a call uses it has to own or share: it may return after all else is gone.
class CallThread {
 public:
  CallThread();
  CallThread(const CallThread&) = delete;
  CallThread& operator=(const CallThread&) = delete;
  /// Does not wait for a call that has not returned. All that were posted are still made, as long as the
  /// program runs.
  ~CallThread();

  /// Has `call`, which must not throw, made after those before it. False when the system gives no thread.
  bool Post(std::function<void()> call);
  /// Waits until every call has returned, but not beyond `deadline`; whether they have.
  bool IsIdle(std::chrono::steady_clock::time_point deadline = {}) const;

 private:
  struct Queue;

  std::shared_ptr<Queue> queue_;
  std::thread thread_;
};

}  // namespace trillomat
