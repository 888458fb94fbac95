// The per-user settings store: text values by section and key. Abstract so that each system keeps
// them where its users expect them, and tests in memory.
#pragma once

#include <string>
#include <string_view>

namespace trillomat {

class SettingsStore {
 public:
  SettingsStore() = default;
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;
  virtual ~SettingsStore() = default;

  /// The stored text, `fallback` when there is none.
  virtual std::string Get(std::string_view section, std::string_view key,
                          std::string_view fallback) const = 0;
  virtual void Set(std::string_view section, std::string_view key, std::string_view value) = 0;
  /// Deletes a whole section; one that does not exist is no error.
  virtual void DeleteSection(std::string_view section) = 0;
};

}  // namespace trillomat
