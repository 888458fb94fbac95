// The exports: what each makes, for the buttons of the export window and for the command line.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/workspace.h"
#include "exchange/range_adaptation.h"

namespace trillomat {

enum class Phone { Rtttl, Nokia, T68i, T39, R320 };

/// One export.
struct ExportTarget {
  Phone phone;
  std::string_view option;  ///< its name on the command line
  std::string_view name;    ///< in a sentence, "the Nokia Composer"
  OctaveRange range;
  std::string (*makeText)(Workspace& ws);  ///< from ws.ExportMelody, adapted already
};

/// The exports, in the order of Phone.
extern const std::array<ExportTarget, 5> kExportTargets;

const ExportTarget& TargetOf(Phone phone);

/// The export of that name on the command line ("nokia"); nothing for an unknown name.
std::optional<Phone> PhoneOfOption(std::string_view option);

/// The Result text of an export of ws.ExportMelody, which the caller has filled and which is moved into the
/// phone's octaves. Nothing when the melody does not fit, and ws.refusal says why; the window shows an empty
/// Result then.
std::optional<std::string> ExportText(Phone phone, Workspace& ws);

/// One button of the export window.
struct ExportButton {
  std::string_view caption;
  std::optional<Phone> phone;  ///< nothing where the button makes no text
  bool enablesSaveToFile;
};

/// The buttons, in the order of their indices. "WAVE", "MIDI" and the second "Nokia Composer" have no text.
extern const std::array<ExportButton, 8> kExportButtons;

}  // namespace trillomat
