// What of the user's choices is kept between two runs, under which section and key, and the defaults.
//
//   [Version]   Counter        version of this layout; settings of an older one are deleted
//   [Path]      BrowseFolder
//   [Settings]  AutoPlay Mode Scale PlayMoving PlayComposing OutPut Duration DurationExtra Volume NoteStrip
//               StripZoom ModernSpelling TidyImport
//   [Recent]    0 to 9         the files that were opened or saved last, the newest first
//
// Every value is text: numbers in decimal, booleans as "True" or "False".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/format_mode.h"
#include "core/log.h"
#include "settings/settings_draft.h"

namespace trillomat {

struct Settings {
  int32_t octave = 4;  ///< place of the octave slider
  FormatMode mode = FormatMode::IMelody;
  std::string browseFolder = "c:\\";  ///< in the system's bytes, ends in a backslash
  bool autoPlay = true;
  bool playMoving = true;
  bool playComposing = true;
  int16_t duration = 4;                       ///< index of the duration option
  int16_t durationExtra = 0;                  ///< index of the duration-extra option
  int16_t output = 1;                         ///< an OutputType
  int16_t volume = 100;                       ///< of the program's output, in percent
  bool noteStrip = true;                      ///< it is shown
  int32_t stripZoom = 100;                    ///< in percent, 1 to 10000
  bool modernSpelling = false;                ///< of RTTTL that is exported
  bool tidyImport = false;                    ///< pasted texts are tidied before they are read
  std::vector<std::string> recentFiles = {};  ///< in the system's bytes, the newest first, none twice

  bool operator==(const Settings&) const = default;
};

/// Whether no run of the program has stored anything yet. False where that cannot be told.
bool IsFirstStart(const SettingsDraft& draft);

/// Reads all settings; those of an older layout are cleaned up first. Where a stored value is none that the
/// program knows, that is logged and the default used. When nothing can be read, that is logged and all are
/// the defaults.
Settings LoadSettings(SettingsDraft& draft, Log& log);

/// Puts the settings into `draft`, to be written by Save. Recent files that other runs have stored meanwhile
/// stay, behind those that this one has used.
void PutSettings(const Settings& settings, SettingsDraft& draft);

/// Writes what was put into `draft`. A failure is logged, and what is stored stays as it was.
void Save(SettingsDraft& draft, Log& log);

/// Has Save delete everything that is kept, but for the version of the layout.
void CleanUpSettings(SettingsDraft& draft, Log& log);

}  // namespace trillomat
