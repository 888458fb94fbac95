// What long work needs of the program around it.
#pragma once

#include "core/event_pump.h"
#include "core/log.h"

namespace trillomat {

class TokenCache;

/// Handed on by value; what it refers to outlives the work.
struct Services {
  Log& log;
  EventPump& pump;
  TokenCache* tokens = nullptr;  ///< outlives a read, so that the next has less to decode; may be null

  /// The same, with events run by `other`.
  Services With(EventPump& other) const { return {log, other, tokens}; }
};

}  // namespace trillomat
