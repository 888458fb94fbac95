// Where the settings are kept between two runs: text values by section and key. Abstract so that each
// system keeps them where its users expect them, and tests in memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/refusal.h"

namespace trillomat {

/// What one run changes: the sections go first.
struct SettingsChanges {
  struct Value {
    std::string section;
    std::string key;
    std::string text;
    bool onlyIfMissing = false;  ///< what is stored by now stays
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

  /// Why nothing can be read from it; nothing when it can.
  virtual std::optional<Refusal> Fault() const { return std::nullopt; }
  /// Reads what others have written since.
  virtual void Refresh() {}
  /// The stored text, as it was when the program started, last wrote or refreshed it; nothing when there is
  /// none.
  virtual std::optional<std::string> Get(std::string_view section, std::string_view key) const = 0;
  /// Makes the changes to what is stored by now, also by others; what they do not name stays. Why it could
  /// not, with everything as it was.
  virtual std::optional<Refusal> Write(const SettingsChanges& changes) = 0;
};

}  // namespace trillomat
