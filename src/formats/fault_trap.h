// How readers, writers and importers fail: inside they throw, at their edge a trap turns that into the
// program's convention (a log line, false, and plain words for the user in Workspace::refusal).
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// A run-time fault: ends the routine with "Error in ROUTINE" in the log. what() is for the user.
class RunTimeFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Ends the routine with false and without a further log line. what() is for the user.
class QuietFailure : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Runs `body`; true when it came to its end. A RunTimeFault, or any other standard exception, is
/// logged as "Error in " and `routine` at level 1; a QuietFailure is not. Either gives false and sets
/// ws.refusal, which is empty otherwise.
bool RunTrapped(std::string_view routine, Workspace& ws, const std::function<void()>& body);

/// The same for what fills ws.ImportMelody: one log operation, the list empty at the start and again
/// after a failure.
bool ReadTrapped(std::string_view routine, Workspace& ws, const std::function<void()>& body);

/// Lets events run; throws QuietFailure when the program is ending.
void PumpOrLeave(Workspace& ws);

/// `text` in double quotes for use in a message, cut when it is long, control characters as "?".
std::string Quoted(std::string_view text);

}  // namespace trillomat
