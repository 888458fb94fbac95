// What the command line needs of the system and the C++ library does not have: arguments in one
// encoding, streams that pass bytes unaltered, an interrupt that can be asked for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/event_pump.h"

namespace trillomat {

/// The arguments in UTF-8, without the program's name.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

/// Standard input and output pass every byte as it is: no line ends are translated.
void MakeStreamsBinary();

/// A pump that sleeps while it waits. Its functions return false once the user has interrupted the
/// program (Ctrl-C), which from its making on no longer ends the process by itself.
std::unique_ptr<EventPump> MakeInterruptiblePump();

}  // namespace trillomat
