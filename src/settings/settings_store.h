// Where the settings are kept between two runs: text values by section and key. Abstract so that each system
// keeps them where its users expect them, and tests keep them in memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/refusal.h"

namespace trillomat {

/// What one run changes. Sections are deleted before values are written.
struct SettingsChanges {
  struct Value {
    std::string section;
    std::string key;
    std::string text;
    bool onlyIfMissing = false;  ///< a value that is stored by now stays
  };

  std::vector<std::string> deletedSections = {};
  std::vector<Value> values = {};
};

class SettingsStore {
 public:
  SettingsStore() = default;
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;
  virtual ~SettingsStore() = default;

  /// Why the values cannot be read; nothing when they can.
  virtual std::optional<Refusal> Fault() const { return std::nullopt; }
  /// Reads what others have written meanwhile.
  virtual void Refresh() {}
  /// The stored text, as it was at the start or at the last Write or Refresh; nothing when there is none.
  virtual std::optional<std::string> Get(std::string_view section, std::string_view key) const = 0;
  /// Makes the changes to what is stored by now, by others too; values that they do not name stay. Returns
  /// why it could not, with everything as it was; nothing when it could.
  virtual std::optional<Refusal> Write(const SettingsChanges& changes) = 0;
};

}  // namespace trillomat
