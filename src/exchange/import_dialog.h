// What the import window does, without the window: which format is selected, when "Import" can be pressed,
// and what it does. ws.ImportMelody holds the result; it is for the caller to make it the composed melody.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// One member of the option group "Source format".
struct ImportOption {
  std::string_view caption;
  bool (*convert)(std::string_view source, Workspace& ws);  ///< null where the option does nothing
};

/// The options, in the order of their indices.
extern const std::array<ImportOption, 5> kImportOptions;

class ImportDialog {
 public:
  /// The state of the option group, as many values as there are options.
  using Options = std::span<const bool, 5>;

  explicit ImportDialog(Workspace& ws) : ws_(ws) {}

  /// The window opens: nothing is imported, and there is no text that could be.
  void Load();

  /// The text or the selection has changed.
  void Update(Options optImport, std::string_view source);
  bool CanImport() const { return canImport_; }

  /// "Import" is pressed: converts `source` into ws.ImportMelody and, with `chkAdapt`, moves the result into
  /// the T68i's octaves. False when the import failed (logged): ImportMelody is empty then and ws.refusal
  /// says why. A melody that cannot be moved is logged and stays as it is; ws.refusal says why then, too.
  bool Import(Options optImport, std::string_view source, bool chkAdapt);

  /// Octaves that "Adapt for T68i" moved the melody up.
  int16_t ImportOctaveShift = 0;

  /// The highest index whose value is true, 0 when there is none.
  static size_t Selected(Options optImport);

 private:
  void AdaptForT68i();

  Workspace& ws_;
  bool canImport_ = false;
};

}  // namespace trillomat
