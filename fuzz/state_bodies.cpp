// What is kept between two runs: the recovery file and the settings.
#include <array>
#include <string>

#include "files/recovery_text.h"
#include "fuzz/bodies.h"
#include "settings/ini_text.h"
#include "settings/settings.h"

namespace trillomat {
namespace {

void ReadAndWriteBack(std::string_view text) {
  const auto read = ReadRecovery(text);
  if (!read) return;
  Require(ReadRecovery(WriteRecovery(read->song, read->mode, read->file, read->time)) == read,
          "a recovered song comes back as it was");
}

// No invention hits on a checksum, so the input is read once more with a last line that fits it.
void Recovery(std::string_view input) {
  ReadAndWriteBack(input);
  std::string text(input);
  uint64_t checksum = 0xcbf29ce484222325U;
  size_t lines = 0;
  for (const char c : text) {
    checksum = (checksum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    if (c == '\n') ++lines;
  }
  const size_t around = text.starts_with("trillomat-recovery 1\n") ? 3 : 4;
  if (lines < around) return;
  ReadAndWriteBack(text + "end\t" + std::to_string(lines - around) + '\t' + std::to_string(checksum) + '\n');
}

// An ini file that is in memory.
class TextStore : public SettingsStore {
 public:
  explicit TextStore(std::string_view text) : text_(std::string(text)) {}

  std::optional<std::string> Get(std::string_view section, std::string_view key) const override {
    return text_.Get(section, key);
  }
  std::optional<Refusal> Write(const SettingsChanges& changes) override {
    text_.Apply(changes);
    return std::nullopt;
  }

 private:
  IniText text_;
};

bool InRange(const Settings& settings) {
  const auto below = [](int value, size_t count) { return value >= 0 && static_cast<size_t>(value) < count; };
  return below(static_cast<int>(settings.mode), kModeLimits.size()) &&
         below(settings.duration, kDurations.size()) &&
         below(settings.durationExtra, kDurationExtras.size()) && below(settings.output, 3);
}

void LoadAndSave(std::string_view input) {
  SilentLog log;
  TextStore store(input);
  SettingsDraft draft(store);
  const Settings loaded = LoadSettings(draft, log);
  Require(InRange(loaded), "every setting is one that the program knows");
  PutSettings(loaded, draft);
  Save(draft, log);
  SettingsDraft next(store);
  Require(LoadSettings(next, log) == loaded, "settings that were saved are loaded again");
  Settings changed = loaded;
  changed.browseFolder = input;
  PutSettings(changed, next);
  Save(next, log);
  SettingsDraft last(store);
  Require(LoadSettings(last, log) == changed, "a folder of any name is kept");
}

constexpr std::array kBodies{FuzzBody{"recovery", &Recovery}, FuzzBody{"settings", &LoadAndSave}};

}  // namespace

const std::span<const FuzzBody> kStateBodies = kBodies;

}  // namespace trillomat
