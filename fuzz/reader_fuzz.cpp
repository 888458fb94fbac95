// Any bytes as a file of one format, FUZZ_MODE, and what was read written in all of them.
#include <cstddef>
#include <cstdint>

#include "fuzz/checks.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer looks for this name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace trillomat;
  SilentWorkspace fuzz;
  Workspace& ws = fuzz.ws;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const bool ok = FormatOf(FormatMode::FUZZ_MODE).ReadText(bytes, ws);
  Require(ok == ws.refusal.empty());
  Require(ok || ws.ImportMelody.empty());
  Require(ws.melody.IsEmpty());
  const MelodyList read = ws.ImportMelody;
  WriteEverywhere(read, ws);
  return 0;
}
