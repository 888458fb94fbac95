// Text on its way to a terminal: names and tokens come from files, and a terminal takes orders from what it
// is given to show.
#pragma once

#include <string>
#include <string_view>

namespace trillomat {

/// Whether the character changes the direction of writing of what follows it.
bool TurnsDirection(char32_t character);

/// `utf8` with everything that a terminal would obey instead of showing written out: the control characters
/// but tab and line ends, what changes the direction of writing or marks it, and bytes that are no UTF-8.
/// A byte stands as "\x1B", a character beyond ASCII as "\u202E". Everything else stays as it is.
std::string EscapedForTerminal(std::string_view utf8);

}  // namespace trillomat
