#include "settings/settings.h"

#include <optional>
#include <string_view>

#include "core/ascii.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

constexpr int32_t kLayoutCounter = 2;
constexpr std::string_view kVersion = "Version";
constexpr std::string_view kPath = "Path";
constexpr std::string_view kSettings = "Settings";

// Digits with a sign in front and nothing else, as SaveSettings writes them.
std::optional<int32_t> WholeNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return RoundToInt32(LeadingNumber(text));
}

class Loader {
 public:
  Loader(const SettingsStore& store, Log& log) : store_(store), log_(log) {}

  int32_t Number(std::string_view section, std::string_view key, int32_t fallback, int32_t lowest,
                 int32_t highest) const {
    const std::string text = store_.GetSetting(section, key, std::to_string(fallback));
    const auto value = WholeNumber(text);
    if (value && *value >= lowest && *value <= highest) return *value;
    Refuse(key, text);
    return fallback;
  }

  int16_t Index(std::string_view key, int16_t fallback, int16_t highest) const {
    return static_cast<int16_t>(Number(kSettings, key, fallback, 0, highest));
  }

  bool Boolean(std::string_view key, bool fallback) const {
    const std::string text = store_.GetSetting(kSettings, key, fallback ? "True" : "False");
    if (EqualNoCase(text, "True")) return true;
    if (EqualNoCase(text, "False")) return false;
    Refuse(key, text);
    return fallback;
  }

  std::string Text(std::string_view section, std::string_view key, std::string_view fallback) const {
    return store_.GetSetting(section, key, fallback);
  }

 private:
  void Refuse(std::string_view key, std::string_view text) const {
    log_.WriteLog("The setting " + std::string(key) + " has an unknown value-->" + std::string(text), 1);
  }

  const SettingsStore& store_;
  Log& log_;
};

}  // namespace

Settings LoadSettings(SettingsStore& store, Log& log) {
  const Loader loader(store, log);
  if (loader.Number(kVersion, "Counter", 0, 0, INT32_MAX) < kLayoutCounter) CleanUpSettings(store, log);
  Settings settings;
  settings.Scale = loader.Number(kSettings, "Scale", settings.Scale, INT32_MIN, INT32_MAX);
  settings.Mode = static_cast<FormatMode>(loader.Index("Mode", 0, static_cast<int16_t>(FormatMode::Melody)));
  settings.BrowseFolder = loader.Text(kPath, "BrowseFolder", settings.BrowseFolder);
  settings.AutoPlay = loader.Boolean("AutoPlay", settings.AutoPlay);
  settings.PlayMoving = loader.Boolean("PlayMoving", settings.PlayMoving);
  settings.PlayComposing = loader.Boolean("PlayComposing", settings.PlayComposing);
  settings.Duration = loader.Index("Duration", settings.Duration, 5);
  settings.DurationExtra = loader.Index("DurationExtra", settings.DurationExtra, 3);
  settings.OutPut = loader.Index("OutPut", settings.OutPut, 2);
  return settings;
}

void SaveSettings(const Settings& settings, SettingsStore& store) {
  const auto number = [&store](std::string_view key, int32_t value) {
    store.SaveSetting(kSettings, key, std::to_string(value));
  };
  const auto boolean = [&store](std::string_view key, bool value) {
    store.SaveSetting(kSettings, key, value ? "True" : "False");
  };
  store.SaveSetting(kVersion, "Counter", std::to_string(kLayoutCounter));
  store.SaveSetting(kPath, "BrowseFolder", settings.BrowseFolder);
  boolean("AutoPlay", settings.AutoPlay);
  number("Mode", static_cast<int32_t>(settings.Mode));
  number("Scale", settings.Scale);
  boolean("PlayMoving", settings.PlayMoving);
  boolean("PlayComposing", settings.PlayComposing);
  number("OutPut", settings.OutPut);
  number("Duration", settings.Duration);
  number("DurationExtra", settings.DurationExtra);
}

void CleanUpSettings(SettingsStore& store, Log& log) {
  log.WriteLog("#############Cleaning up registry##############", 1);
  store.DeleteSetting(kPath);
  store.DeleteSetting(kSettings);
}

}  // namespace trillomat
