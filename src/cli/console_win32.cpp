#include "cli/console.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "platform/terminal.h"
#include "platform/win32.h"
// after windows.h
#include <shellapi.h>

namespace trillomat {
std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv + (argc > 0 ? 1 : 0), argv + argc};
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8OfWide(wide[i]).value_or("?"));
  LocalFree(wide);
  return arguments;
}

void PrepareStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  // What is printed is UTF-8, which a console does not expect by itself.
  SetConsoleOutputCP(CP_UTF8);
}

size_t ErrorColumns() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &screen) == 0) return kUsualColumns;
  return static_cast<size_t>(std::max(1, screen.srWindow.Right - screen.srWindow.Left + 1));
}

bool IsErrorWatched() {
  return IsTerminal(StandardStream::Error) && GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_PIPE;
}

// Asked at once, as long as the error is the last.
bool IsOutputAbandoned() { return errno == EPIPE || errno == EINVAL; }

}  // namespace trillomat
