#include "platform/settings_qt.h"

#include <QString>

namespace trillomat {
namespace {

QString Text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString KeyPath(std::string_view section, std::string_view key) {
  return Text(section) + QLatin1Char('/') + Text(key);
}

}  // namespace

RegistrySettingsStore::RegistrySettingsStore()
    : settings_(QStringLiteral("HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Trillomat"),
                QSettings::NativeFormat) {}

std::optional<std::string> RegistrySettingsStore::Get(std::string_view section, std::string_view key) const {
  const QString path = KeyPath(section, key);
  if (!settings_.contains(path)) return std::nullopt;
  return settings_.value(path).toString().toStdString();
}

std::optional<Refusal> RegistrySettingsStore::Write(const SettingsChanges& changes) {
  for (const std::string& section : changes.deletedSections) settings_.remove(Text(section));
  for (const auto& [section, key, text, onlyIfMissing] : changes.values) {
    const QString path = KeyPath(section, key);
    if (!onlyIfMissing || !settings_.contains(path)) settings_.setValue(path, Text(text));
  }
  settings_.sync();
  if (settings_.status() == QSettings::NoError) return std::nullopt;
  return Refusal{"the registry cannot be written"};
}

}  // namespace trillomat
