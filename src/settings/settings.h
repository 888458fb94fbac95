// The user's choices between two runs: what is kept, under which section and key, and its defaults.
//
//   [Version]   Counter        layout number of the settings; an older one makes them start afresh
//   [Path]      BrowseFolder
//   [Settings]  AutoPlay Mode Scale PlayMoving PlayComposing OutPut Duration DurationExtra
//
// Every value is text: numbers in decimal, booleans as "True" or "False".
#pragma once

#include <cstdint>
#include <string>

#include "core/format_mode.h"
#include "core/log.h"
#include "settings/settings_store.h"

namespace trillomat {

struct Settings {
  int32_t octave = 4;  ///< place of the octave slider
  FormatMode mode = FormatMode::IMelody;
  std::string browseFolder = "c:\\";  ///< Windows-1252, ends in a backslash
  bool autoPlay = true;
  bool playMoving = true;
  bool playComposing = true;
  int16_t duration = 4;       ///< index of the duration option
  int16_t durationExtra = 0;  ///< index of the duration-extra option
  int16_t output = 1;         ///< an OutputType

  bool operator==(const Settings&) const = default;
};

/// Reads all settings; settings of an older layout are cleaned up first. A stored value that is not a
/// number, or not one that the program knows, is logged and its default used.
Settings LoadSettings(SettingsStore& store, Log& log);

void SaveSettings(const Settings& settings, SettingsStore& store);

/// Deletes everything that is kept but the layout number.
void CleanUpSettings(SettingsStore& store, Log& log);

}  // namespace trillomat
