// What long work needs of the program around it.
#pragma once

#include "core/event_pump.h"
#include "core/log.h"

namespace trillomat {

/// Handed on by value; the log and the pump outlive the work.
struct Services {
  Log& log;
  EventPump& pump;
};

}  // namespace trillomat
