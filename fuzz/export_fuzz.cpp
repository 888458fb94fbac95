// Any bytes as an iMelody file, the one format with commands, and every export of what was read.
#include "fuzz/export_everywhere.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer looks for this name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace trillomat;
  SilentWorkspace fuzz;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  FormatOf(FormatMode::IMelody).ReadText(bytes, fuzz.ws);
  const MelodyList read = fuzz.ws.ImportMelody;
  ExportEverywhere(read, fuzz.ws);
  return 0;
}
