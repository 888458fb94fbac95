#include <unistd.h>

#include "platform/terminal.h"

namespace trillomat {

bool IsTerminal(StandardStream stream) { return isatty(static_cast<int>(stream)) == 1; }

}  // namespace trillomat
