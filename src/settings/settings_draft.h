// The settings as one run of the program sees and changes them. Several runs share a store, so what this one
// did not change it leaves as the others wrote it.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "settings/settings_store.h"

namespace trillomat {

class SettingsDraft {
 public:
  explicit SettingsDraft(SettingsStore& store) : store_(store) {}

  /// Why the stored values cannot be read; nothing when they can.
  std::optional<Refusal> Fault() const { return store_.Fault(); }
  /// The stored text, `fallback` when there is none.
  std::string Get(std::string_view section, std::string_view key, std::string_view fallback);
  /// What Get gave for it last, empty when it was not asked.
  std::string Seen(std::string_view section, std::string_view key) const;
  /// Reads what other runs have stored since.
  void Refresh() { store_.Refresh(); }
  /// The stored text, empty when there is none. It counts as not seen.
  std::string Stored(std::string_view section, std::string_view key) const;

  // Nothing is written before Save.
  /// What Get gave for it is written only where nothing is stored.
  void Set(std::string_view section, std::string_view key, std::string_view text);
  /// Written whatever is stored.
  void SetAlways(std::string_view section, std::string_view key, std::string_view text);
  /// Deletes a whole section; one that does not exist is no error. Get finds nothing in it from now on.
  void DeleteSection(std::string_view section);
  /// Writes what was set and deleted, and forgets it. Why it could not be written.
  std::optional<Refusal> Save();

 private:
  SettingsStore& store_;
  std::map<std::pair<std::string, std::string>, std::string> seen_;  ///< by section and key
  std::set<std::string, std::less<>> deleted_;
  SettingsChanges changes_;
};

}  // namespace trillomat
