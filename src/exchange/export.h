// The exports: what each makes, for the buttons of the export window and for the command line.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/codec.h"
#include "core/refusal.h"
#include "core/services.h"
#include "core/song.h"
#include "exchange/key_press_run.h"
#include "exchange/range_adaptation.h"

namespace trillomat {

enum class Phone { Rtttl, Nokia, T68i, T39, R320 };
inline constexpr size_t kPhones = static_cast<size_t>(Phone::R320) + 1;

/// One export.
struct ExportTarget {
  Phone phone;
  std::string_view option;  ///< its name on the command line
  std::string_view name;    ///< in a sentence, "the Nokia Composer"
  OctaveRange range;
  size_t mostNotes = 0;  ///< the longest tune that it takes, in tones and pauses; 0 where none is known
};

/// The exports, in the order of Phone. The 50 notes of Nokia's built-in composer are those of the ring tone
/// formats listed at geocities.ws/free2ringtones/ringtone-formats.html.
extern const std::array<ExportTarget, kPhones> kExportTargets;

const ExportTarget& TargetOf(Phone phone);

/// The export of that name on the command line ("nokia"); nothing for an unknown name.
std::optional<Phone> PhoneOfOption(std::string_view option);

/// The Result text of an export: RTTTL text, or the key presses that type the song into the phone, moved into
/// its octaves. Refused when the song has no elements or does not fit. `spelling` is that of RTTTL.
Result<std::string> Export(Phone phone, const Song& song, const Services& services,
                           RtttlSpelling spelling = RtttlSpelling::Classic);

/// The keys of that phone's composer; null for RTTTL, which has none.
std::unique_ptr<PhoneKeys> KeysOf(Phone phone, const MelodyToType& melody, Log& log);

/// One button of the export window.
struct ExportButton {
  std::string_view caption;
  std::optional<Phone> phone;  ///< nothing where the button makes no text
  bool enablesSaveToFile;
};

/// The buttons, in the order of their indices. "WAVE", "MIDI" and the second "Nokia Composer" have no text.
extern const std::array<ExportButton, 8> kExportButtons;

}  // namespace trillomat
