// The settings store of Windows: the registry, over QSettings.
#pragma once

#include <QSettings>

#include "settings/settings_store.h"

namespace trillomat {

/// Keeps them in the per-user area in which Visual Basic programs keep their settings. Texts are UTF-8.
class RegistrySettingsStore : public SettingsStore {
 public:
  RegistrySettingsStore();

  void Refresh() override { settings_.sync(); }
  std::optional<std::string> Get(std::string_view section, std::string_view key) const override;
  std::optional<Refusal> Write(const SettingsChanges& changes) override;

 private:
  QSettings settings_;
};

}  // namespace trillomat
