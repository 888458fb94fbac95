// Whether the program's output goes to a terminal.
#pragma once

namespace trillomat {

enum class StandardStream { Output = 1, Error = 2 };

/// Whether the stream goes to a terminal, which obeys control characters in the text (core/terminal_text.h).
bool IsTerminal(StandardStream stream);

}  // namespace trillomat
