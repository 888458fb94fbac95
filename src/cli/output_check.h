// Whether a command may write where it is told to, asked before it does any work.
#pragma once

#include "cli/commands.h"

namespace trillomat {

/// Throws Refused where writing `call.out` would lose something: it exists, or is a link, and the user did
/// not say --force; or it is the file that is read, by whatever name, and `sameFormat` is false, so that its
/// melody would be gone. What is no plain file is written into and never refused.
void CheckOutput(const Invocation& call, bool sameFormat, const FileStore& store);

}  // namespace trillomat
