// The signals by which the user or the system ends the program: Ctrl-C, a closed terminal, a plain kill.
// Those that are ignored when the program starts, as under nohup, stay ignored.
#pragma once

#include <functional>
#include <memory>

#include "core/event_pump.h"

namespace trillomat {

/// A pump that sleeps while it waits. Its functions return false once the user has interrupted the
/// program, which from its making on no longer ends the process by itself.
std::unique_ptr<EventPump> MakeInterruptiblePump();

class SignalWatch {
 public:
  SignalWatch() = default;
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;
  virtual ~SignalWatch() = default;
};

/// As long as the watch lives, such a signal first calls `cleanUp`, in a thread of its own and whatever the
/// program waits for meanwhile, and then ends the process as it would have done without. A write to a pipe
/// that nobody reads only fails; what that signals ends the process with the watch.
std::unique_ptr<SignalWatch> WatchSignals(std::function<void()> cleanUp);

}  // namespace trillomat
