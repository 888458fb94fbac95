// Any bytes as pasted text of the option FUZZ_OPTION, and every export of what came of it.
#include "exchange/import_dialog.h"
#include "fuzz/export_everywhere.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer looks for this name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace trillomat;
  SilentWorkspace fuzz;
  Workspace& ws = fuzz.ws;
  ImportDialog dialog(ws);
  std::array<bool, 5> options{};
  options.at(FUZZ_OPTION) = true;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  dialog.Update(options, text);
  const bool ok = dialog.Import(options, text, size % 2 == 1);
  Require(ok != ws.ImportMelody.empty());
  Require(ok || !ws.refusal.empty());
  const MelodyList imported = ws.ImportMelody;
  ExportEverywhere(imported, ws);
  return 0;
}
