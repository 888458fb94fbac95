// Settings kept in memory.
#pragma once

#include <map>
#include <string>

#include "settings/settings_store.h"

namespace trillomat {

/// The values by "Section/Key".
class MemoryStore : public SettingsStore {
 public:
  std::string Get(std::string_view section, std::string_view key, std::string_view fallback) const override {
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? std::string(fallback) : found->second;
  }
  void Set(std::string_view section, std::string_view key, std::string_view value) override {
    values[std::string(section) + "/" + std::string(key)] = value;
  }
  void DeleteSection(std::string_view section) override {
    std::erase_if(values,
                  [&](const auto& entry) { return entry.first.starts_with(std::string(section) + "/"); });
  }

  std::map<std::string, std::string> values;
};

}  // namespace trillomat
