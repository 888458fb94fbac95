#include "cli/signals.h"
#include "platform/pump_sleep.h"

namespace trillomat {

// Ctrl-C ends the process, and its sound with it: nothing else has to be put back.
std::unique_ptr<EventPump> MakeInterruptiblePump() { return std::make_unique<SleepPump>(); }

// The system deletes the files that an ended process had not finished.
std::unique_ptr<SignalWatch> WatchSignals(std::function<void()> /*cleanUp*/) { return nullptr; }

}  // namespace trillomat
