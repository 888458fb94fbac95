#include "platform/terminal.h"
#include "platform/win32.h"

namespace trillomat {

bool IsTerminal(StandardStream stream) {
  DWORD mode = 0;
  const bool output = stream == StandardStream::Output;
  return GetConsoleMode(GetStdHandle(output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace trillomat
