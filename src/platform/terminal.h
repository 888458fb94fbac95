// Whether somebody reads along what the program prints.
#pragma once

namespace trillomat {

enum class StandardStream { Output = 1, Error = 2 };

/// Whether it goes to a terminal, which obeys what it is given to show.
bool IsTerminal(StandardStream stream);

}  // namespace trillomat
