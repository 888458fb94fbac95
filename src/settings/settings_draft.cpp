#include "settings/settings_draft.h"

namespace trillomat {

std::string SettingsDraft::Get(std::string_view section, std::string_view key, std::string_view fallback) {
  const auto stored = deleted_.contains(section) ? std::nullopt : store_.Get(section, key);
  return seen_[{std::string(section), std::string(key)}] = stored.value_or(std::string(fallback));
}

std::string SettingsDraft::Seen(std::string_view section, std::string_view key) const {
  const auto seen = seen_.find({std::string(section), std::string(key)});
  return seen == seen_.end() ? "" : seen->second;
}

std::string SettingsDraft::Stored(std::string_view section, std::string_view key) const {
  if (deleted_.contains(section)) return {};
  return store_.Get(section, key).value_or("");
}

void SettingsDraft::Set(std::string_view section, std::string_view key, std::string_view text) {
  const auto seen = seen_.find({std::string(section), std::string(key)});
  const bool unchanged = seen != seen_.end() && seen->second == text;
  changes_.values.push_back({std::string(section), std::string(key), std::string(text), unchanged});
}

void SettingsDraft::SetAlways(std::string_view section, std::string_view key, std::string_view text) {
  changes_.values.push_back({std::string(section), std::string(key), std::string(text), false});
}

void SettingsDraft::DeleteSection(std::string_view section) {
  deleted_.emplace(section);
  changes_.deletedSections.emplace_back(section);
}

std::optional<Refusal> SettingsDraft::Save() { return store_.Write(std::exchange(changes_, {})); }

}  // namespace trillomat
