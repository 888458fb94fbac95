#include "settings/settings.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>

#include "core/ascii.h"
#include "core/element.h"
#include "core/limits.h"
#include "core/number_text.h"
#include "core/output_type.h"

namespace trillomat {
namespace {

constexpr int32_t kLayoutCounter = 2;
constexpr std::string_view kVersion = "Version";
constexpr std::string_view kPath = "Path";
constexpr std::string_view kSettings = "Settings";
constexpr std::string_view kRecent = "Recent";

using Paths = std::vector<std::string>;

bool Has(const Paths& paths, const std::string& path) {
  return std::find(paths.begin(), paths.end(), path) != paths.end();
}

// The recent files that `get` has by their numbers. An empty text is a number that is not used.
Paths RecentIn(const std::function<std::string(std::string_view)>& get) {
  Paths paths;
  for (size_t i = 0; i < kMostRecentFiles; ++i) {
    const std::string path = get(std::to_string(i));
    if (!path.empty() && !Has(paths, path)) paths.push_back(path);
  }
  return paths;
}

// How many of `own` this run has used: it has put these to the front, and the others still stand in the order
// in which they were loaded.
size_t UsedCount(const Paths& own, const Paths& loaded) {
  auto before = loaded.rbegin();
  size_t used = own.size();
  for (; used > 0; --used) {
    before = std::find(before, loaded.rend(), own[used - 1]);
    if (before == loaded.rend()) break;
    ++before;
  }
  return used;
}

// First the files that this run has used, then those that are stored by now, but for those that this run has
// dropped from the list.
Paths Merged(const Paths& own, const Paths& loaded, const Paths& stored) {
  Paths merged(own.begin(), own.begin() + static_cast<std::ptrdiff_t>(UsedCount(own, loaded)));
  for (const std::string& path : stored) {
    const bool dropped = Has(loaded, path) && !Has(own, path);
    if (!dropped && !Has(merged, path)) merged.push_back(path);
  }
  merged.resize(std::min(merged.size(), kMostRecentFiles));
  return merged;
}

void PutRecent(const Paths& own, SettingsDraft& draft) {
  const Paths loaded = RecentIn([&](std::string_view key) { return draft.Seen(kRecent, key); });
  if (own == loaded) return;
  draft.Refresh();
  const Paths stored = RecentIn([&](std::string_view key) { return draft.Stored(kRecent, key); });
  const Paths merged = Merged(own, loaded, stored);
  for (size_t i = 0; i < kMostRecentFiles; ++i) {
    draft.SetAlways(kRecent, std::to_string(i), i < merged.size() ? merged[i] : "");
  }
}

// The value of digits, perhaps with a "-" in front, as PutSettings writes them; nothing for any other text.
std::optional<int32_t> WholeNumber(std::string_view text) {
  if (!IsAllDigits(text.substr(text.starts_with('-') ? 1 : 0))) return std::nullopt;
  return RoundToInt32(LeadingNumber(text));
}

class Loader {
 public:
  Loader(SettingsDraft& draft, Log& log) : draft_(draft), log_(log) {}

  int32_t Number(std::string_view section, std::string_view key, int32_t fallback, int32_t lowest,
                 int32_t highest) const {
    const std::string text = draft_.Get(section, key, std::to_string(fallback));
    const auto value = WholeNumber(text);
    if (value && *value >= lowest && *value <= highest) return *value;
    Refuse(key, text);
    return fallback;
  }

  int16_t Index(std::string_view key, int16_t fallback, size_t count) const {
    return static_cast<int16_t>(Number(kSettings, key, fallback, 0, static_cast<int32_t>(count) - 1));
  }

  bool Boolean(std::string_view key, bool fallback) const {
    const std::string text = draft_.Get(kSettings, key, fallback ? "True" : "False");
    if (EqualNoCase(text, "True")) return true;
    if (EqualNoCase(text, "False")) return false;
    Refuse(key, text);
    return fallback;
  }

  std::string Text(std::string_view section, std::string_view key, std::string_view fallback) const {
    return draft_.Get(section, key, fallback);
  }

 private:
  void Refuse(std::string_view key, std::string_view text) const {
    log_.WriteLog("The setting " + std::string(key) + " has an unknown value-->" + std::string(text), 1);
  }

  SettingsDraft& draft_;
  Log& log_;
};

}  // namespace

bool IsFirstStart(const SettingsDraft& draft) {
  return !draft.Fault() && draft.Stored(kVersion, "Counter").empty();
}

Settings LoadSettings(SettingsDraft& draft, Log& log) {
  const Loader loader(draft, log);
  if (const auto fault = draft.Fault()) {
    log.WriteLog("Could not read the settings: " + fault->why, 1);
  } else if (loader.Number(kVersion, "Counter", 0, 0, INT32_MAX) < kLayoutCounter) {
    CleanUpSettings(draft, log);
    Save(draft, log);
  }
  const Settings first;
  return {.octave = loader.Number(kSettings, "Scale", first.octave, INT32_MIN, INT32_MAX),
          .mode = static_cast<FormatMode>(
              loader.Index("Mode", static_cast<int16_t>(first.mode), kModeLimits.size())),
          .browseFolder = loader.Text(kPath, "BrowseFolder", first.browseFolder),
          .autoPlay = loader.Boolean("AutoPlay", first.autoPlay),
          .playMoving = loader.Boolean("PlayMoving", first.playMoving),
          .playComposing = loader.Boolean("PlayComposing", first.playComposing),
          .duration = loader.Index("Duration", first.duration, kDurations.size()),
          .durationExtra = loader.Index("DurationExtra", first.durationExtra, kDurationExtras.size()),
          .output = loader.Index("OutPut", first.output, static_cast<size_t>(kLastOutputType) + 1),
          .volume = loader.Index("Volume", first.volume, 101),
          .noteStrip = loader.Boolean("NoteStrip", first.noteStrip),
          .stripZoom = loader.Number(kSettings, "StripZoom", first.stripZoom, 1, 10000),
          .modernSpelling = loader.Boolean("ModernSpelling", first.modernSpelling),
          .tidyImport = loader.Boolean("TidyImport", first.tidyImport),
          .recentFiles = RecentIn([&](std::string_view key) { return loader.Text(kRecent, key, ""); })};
}

void PutSettings(const Settings& settings, SettingsDraft& draft) {
  const auto number = [&draft](std::string_view key, int32_t value) {
    draft.Set(kSettings, key, std::to_string(value));
  };
  const auto boolean = [&draft](std::string_view key, bool value) {
    draft.Set(kSettings, key, value ? "True" : "False");
  };
  draft.SetAlways(kVersion, "Counter", std::to_string(kLayoutCounter));
  draft.Set(kPath, "BrowseFolder", settings.browseFolder);
  boolean("AutoPlay", settings.autoPlay);
  number("Mode", static_cast<int32_t>(settings.mode));
  number("Scale", settings.octave);
  boolean("PlayMoving", settings.playMoving);
  boolean("PlayComposing", settings.playComposing);
  number("OutPut", settings.output);
  number("Duration", settings.duration);
  number("DurationExtra", settings.durationExtra);
  number("Volume", settings.volume);
  boolean("NoteStrip", settings.noteStrip);
  number("StripZoom", settings.stripZoom);
  boolean("ModernSpelling", settings.modernSpelling);
  boolean("TidyImport", settings.tidyImport);
  PutRecent(settings.recentFiles, draft);
}

void Save(SettingsDraft& draft, Log& log) {
  if (const auto fault = draft.Save()) log.WriteLog("Could not save the settings: " + fault->why, 1);
}

void CleanUpSettings(SettingsDraft& draft, Log& log) {
  log.WriteLog("#############Cleaning up registry##############", 1);
  draft.DeleteSection(kPath);
  draft.DeleteSection(kSettings);
  draft.DeleteSection(kRecent);
}

}  // namespace trillomat
