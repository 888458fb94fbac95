#include "platform/settings_qt.h"

#include <QStandardPaths>

namespace trillomat {
namespace {

QString Text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString KeyPath(std::string_view section, std::string_view key) {
  return Text(section) + QLatin1Char('/') + Text(key);
}

#ifdef Q_OS_WIN
constexpr QSettings::Format kFormat = QSettings::NativeFormat;

QString UserStore() {
  return QStringLiteral("HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Trillomat");
}
#else
constexpr QSettings::Format kFormat = QSettings::IniFormat;

QString UserStore() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/trillomat/trillomat.ini");
}
#endif

}  // namespace

QtSettingsStore::QtSettingsStore() : settings_(UserStore(), kFormat) {}

QtSettingsStore::QtSettingsStore(const QString& file) : settings_(file, QSettings::IniFormat) {}

std::string QtSettingsStore::Get(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  return settings_.value(KeyPath(section, key), Text(fallback)).toString().toStdString();
}

void QtSettingsStore::Set(std::string_view section, std::string_view key, std::string_view value) {
  settings_.setValue(KeyPath(section, key), Text(value));
}

void QtSettingsStore::DeleteSection(std::string_view section) { settings_.remove(Text(section)); }

}  // namespace trillomat
