#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <cstdio>

#include "cli/console.h"

namespace trillomat {
namespace {

std::string Utf8OfWide(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return {};
  std::string utf8(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the final zero
  return utf8;
}

// Ctrl-C ends the process, and its sound with it: nothing else has to be put back.
class SleepingPump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double milliseconds) override {
    Sleep(static_cast<DWORD>(milliseconds + 0.999));
    return true;
  }
};

}  // namespace

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv + (argc > 0 ? 1 : 0), argv + argc};
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8OfWide(wide[i]));
  LocalFree(wide);
  return arguments;
}

void MakeStreamsBinary() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

std::unique_ptr<EventPump> MakeInterruptiblePump() { return std::make_unique<SleepingPump>(); }

}  // namespace trillomat
