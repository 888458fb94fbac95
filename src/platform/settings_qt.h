// The settings store over QSettings: the registry on Windows, a file of the user's elsewhere.
#pragma once

#include <QSettings>
#include <QString>

#include "settings/settings_store.h"

namespace trillomat {

/// Texts are UTF-8.
class QtSettingsStore : public SettingsStore {
 public:
  /// The user's own store: $XDG_CONFIG_HOME/trillomat/trillomat.ini, or in the registry the per-user area
  /// in which Visual Basic programs keep theirs.
  QtSettingsStore();
  /// The ini file `file`.
  explicit QtSettingsStore(const QString& file);

  std::string Get(std::string_view section, std::string_view key, std::string_view fallback) const override;
  void Set(std::string_view section, std::string_view key, std::string_view value) override;
  void DeleteSection(std::string_view section) override;

 private:
  QSettings settings_;
};

}  // namespace trillomat
