// The settings as one run of the program sees and changes them. Several runs share a store, so values that
// this one has not changed are left as the others have written them.
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
  /// What Get has returned for it last; empty when it was not called.
  std::string Seen(std::string_view section, std::string_view key) const;
  /// Reads what other runs have stored meanwhile.
  void Refresh() { store_.Refresh(); }
  /// The stored text, empty when there is none. Does not count for Seen.
  std::string Stored(std::string_view section, std::string_view key) const;

  // Nothing is written before Save.
  /// Sets a value. One that Get has returned, so one that this run has not changed, is written only where
  /// nothing is stored.
  void Set(std::string_view section, std::string_view key, std::string_view text);
  /// Sets a value that is written whatever is stored.
  void SetAlways(std::string_view section, std::string_view key, std::string_view text);
  /// Deletes a whole section; one that does not exist is no error. Get finds nothing in it from now on.
  void DeleteSection(std::string_view section);
  /// Writes what was set and deleted, and forgets it. Returns why it could not be written; nothing when it
  /// was.
  std::optional<Refusal> Save();

 private:
  SettingsStore& store_;
  std::map<std::pair<std::string, std::string>, std::string> seen_;  ///< by section and key
  std::set<std::string, std::less<>> deleted_;
  SettingsChanges changes_;
};

}  // namespace trillomat
