#include <unistd.h>

#include <atomic>
#include <csignal>
#include <ctime>
#include <system_error>
#include <thread>

#include "cli/signals.h"

namespace trillomat {
namespace {

void AddUnlessIgnored(sigset_t& signals, int signal) {
  struct sigaction found {};
  if (sigaction(signal, nullptr, &found) == 0 && found.sa_handler != SIG_IGN) sigaddset(&signals, signal);
}

sigset_t EndingSignals() {
  sigset_t signals{};
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) AddUnlessIgnored(signals, signal);
  return signals;
}

// Blocked in this thread, and in those that it starts, so that whoever waits for them fetches them: no
// handler and no global flag is needed.
class BlockedSignals {
 public:
  explicit BlockedSignals(const sigset_t& signals) { pthread_sigmask(SIG_BLOCK, &signals, &before_); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

class SignalPump : public EventPump {
 public:
  bool PumpEvents() override { return WaitForSignal({}); }

  bool WaitForEvents(double milliseconds) override {
    const auto nanoseconds = static_cast<long long>(milliseconds * 1e6);
    constexpr long long kSecond = 1'000'000'000;
    return WaitForSignal(
        {static_cast<time_t>(nanoseconds / kSecond), static_cast<long>(nanoseconds % kSecond)});
  }

 private:
  bool WaitForSignal(timespec length) {
    if (!interrupted_) interrupted_ = sigtimedwait(&signals_, nullptr, &length) > 0;
    return !interrupted_;
  }

  sigset_t signals_ = EndingSignals();
  BlockedSignals blocked_{signals_};
  bool interrupted_ = false;
};

// As the signal would have done, so that who started the program sees what ended it.
[[noreturn]] void EndBy(int signal) {
  std::signal(signal, SIG_DFL);
  sigset_t alone{};
  sigemptyset(&alone);
  sigaddset(&alone, signal);
  pthread_sigmask(SIG_UNBLOCK, &alone, nullptr);
  raise(signal);
  // The first process of a container is not ended by its own signals.
  _exit(128 + signal);
}

class ThreadedWatch : public SignalWatch {
 public:
  explicit ThreadedWatch(std::function<void()> cleanUp)
      : cleanUp_(std::move(cleanUp)), thread_([this] { Watch(); }) {}
  ThreadedWatch(const ThreadedWatch&) = delete;
  ThreadedWatch& operator=(const ThreadedWatch&) = delete;
  ~ThreadedWatch() override {
    done_ = true;
    pthread_kill(thread_.native_handle(), kWake);
    thread_.join();
  }

 private:
  // A signal that nobody else sends or waits for.
  static constexpr int kWake = SIGURG;

  static sigset_t Watched() {
    sigset_t signals = EndingSignals();
    sigaddset(&signals, kWake);
    // That of a closed pipe goes to the thread that writes, where it waits until the watch ends: the write
    // fails meanwhile, and nothing is left unfinished.
    AddUnlessIgnored(signals, SIGPIPE);
    return signals;
  }

  void Watch() {
    while (!done_) {
      int signal = 0;
      if (sigwait(&signals_, &signal) != 0 || signal == kWake) continue;
      cleanUp_();
      EndBy(signal);
    }
  }

  std::function<void()> cleanUp_;
  sigset_t signals_ = Watched();
  BlockedSignals blocked_{signals_};
  std::atomic<bool> done_ = false;
  std::thread thread_;
};

}  // namespace

std::unique_ptr<EventPump> MakeInterruptiblePump() { return std::make_unique<SignalPump>(); }

std::unique_ptr<SignalWatch> WatchSignals(std::function<void()> cleanUp) {
  try {
    return std::make_unique<ThreadedWatch>(std::move(cleanUp));
  } catch (const std::system_error&) {
    return nullptr;  // There is no room for another thread; the work itself needs none.
  }
}

}  // namespace trillomat
