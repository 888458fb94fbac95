// --to-folder: one command for many inputs.
#pragma once

#include <functional>
#include <string_view>

#include "cli/commands.h"

namespace trillomat {

/// Calls `command` for each of `call.inputs`, whose output is named like it in `call.toFolder` with
/// `extension` (no dot). The folder is made where there is none. What fails is said and the others are done
/// all the same; so fails what would replace an output of the same call. Throws Refused at the end when any
/// failed.
void ForEachInput(const Invocation& call, std::string_view extension, const CommandServices& services,
                  const std::function<void(const Invocation&)>& command);

}  // namespace trillomat
