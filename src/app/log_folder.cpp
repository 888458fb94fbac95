#include "app/log_folder.h"

#include <QDir>
#include <QString>
#include <QTemporaryFile>

namespace trillomat {
namespace {

// Access rights do not tell it all (read-only media, network folders), so a file is made and removed.
bool CanWriteIn(const std::filesystem::path& folder) {
  const QString path = QString::fromStdWString(folder.wstring());
  QTemporaryFile probe(path + QStringLiteral("/trillomat-XXXXXX.tmp"));
  return QDir().mkpath(path) && probe.open();
}

std::filesystem::path Folder(const QString& path) { return path.toStdWString(); }

}  // namespace

std::filesystem::path StateFolder() {
#ifdef Q_OS_WIN
  return Folder(qEnvironmentVariable("LOCALAPPDATA") + QStringLiteral("/Trillomat"));
#else
  const QString home = QDir::homePath() + QStringLiteral("/.local/state");
  const QString state = qEnvironmentVariable("XDG_STATE_HOME");
  // A relative path in that variable counts as none, as its specification says.
  return Folder((QDir::isAbsolutePath(state) ? state : home) + QStringLiteral("/trillomat"));
#endif
}

std::optional<std::filesystem::path> LogFolder(const std::filesystem::path& programFolder) {
  for (const std::filesystem::path& folder : {programFolder, StateFolder()}) {
    if (CanWriteIn(folder)) return folder;
  }
  return std::nullopt;
}

}  // namespace trillomat
