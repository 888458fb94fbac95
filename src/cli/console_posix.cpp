#include <csignal>
#include <ctime>

#include "cli/console.h"

namespace trillomat {
namespace {

// The signals stay blocked and are fetched by the waits, so no handler and no global flag is needed.
class SignalPump : public EventPump {
 public:
  SignalPump() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigaddset(&signals_, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
  }

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

  sigset_t signals_{};
  bool interrupted_ = false;
};

}  // namespace

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void MakeStreamsBinary() {}

std::unique_ptr<EventPump> MakeInterruptiblePump() { return std::make_unique<SignalPump>(); }

}  // namespace trillomat
