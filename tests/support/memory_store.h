// Settings kept in memory.
#pragma once

#include <map>
#include <string>

#include "settings/settings_store.h"

namespace trillomat {

/// The values by "Section/Key".
class MemoryStore : public SettingsStore {
 public:
  std::optional<std::string> Get(std::string_view section, std::string_view key) const override {
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  std::optional<Refusal> Write(const SettingsChanges& changes) override {
    for (const std::string& section : changes.deletedSections) {
      std::erase_if(values, [&](const auto& entry) { return entry.first.starts_with(section + "/"); });
    }
    for (const auto& [section, key, text, onlyIfMissing] : changes.values) {
      if (!onlyIfMissing || !Get(section, key)) values[std::string(section).append("/").append(key)] = text;
    }
    return std::nullopt;
  }

  std::map<std::string, std::string> values;
};

}  // namespace trillomat
