#include "ui/questions.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QUrl>

#include "files/path_text.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

// `filter` holds descriptions and patterns in turn, with zero bytes between them. A description,
// "MIDI (*.mid)", is what Qt calls a filter.
QStringList FiltersOf(const std::string& filter) {
  const QStringList parts =
      QString::fromLatin1(filter.data(), static_cast<qsizetype>(filter.size())).split(QChar(0));
  QStringList filters;
  for (qsizetype i = 0; i < parts.size(); i += 2) filters << parts.at(i);
  return filters;
}

// ".mid" of "MIDI (*.mid)"
std::string ExtensionOf(const QString& filter) {
  return filter.section(QLatin1Char('*'), 1).section(QLatin1Char(')'), 0, 0).toStdString();
}

}  // namespace

// Whether a file may be replaced is asked afterwards, by the save command.
std::optional<std::filesystem::path> QtQuestions::AskSavePath(QWidget* parent, const SaveDialog& dialog) {
  // The dialog cannot open in a folder whose name is no valid text; there it opens where it did last.
  const QString folder = FromUtf8Bytes(Utf8OfPath(dialog.folder));
  const QStringList filters = FiltersOf(dialog.filter);
  QString selected = filters.value(0);
  const QString file = QFileDialog::getSaveFileName(
      parent, QStringLiteral("Save As"), folder + QLatin1Char('/') + QString::fromStdString(dialog.fileName),
      filters.join(QStringLiteral(";;")), &selected, QFileDialog::DontConfirmOverwrite);
  if (file.isEmpty()) return std::nullopt;
  std::filesystem::path path = PathOfUtf8(file.toStdString());
  // The save command adds the extension of the first filter by itself.
  if (filters.indexOf(selected) > 0 && !path.has_extension()) path += ExtensionOf(selected);
  return path;
}

std::optional<std::filesystem::path> QtQuestions::AskOpenPath(QWidget* parent, const OpenDialog& dialog) {
  const QString file =
      QFileDialog::getOpenFileName(parent, QStringLiteral("Open"), FromUtf8Bytes(Utf8OfPath(dialog.folder)),
                                   QString::fromStdString(dialog.filter));
  if (file.isEmpty()) return std::nullopt;
  return PathOfUtf8(file.toStdString());
}

bool QtQuestions::AskYesNo(QWidget* parent, const QString& title, const QString& question) {
  QMessageBox box(QMessageBox::Question, title, {}, QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);
  box.setText(ShownMessage(question));
  return box.exec() == QMessageBox::Yes;
}

std::optional<int> QtQuestions::AskTrack(QWidget* parent, const QStringList& tracks, int proposed) {
  bool chosen = false;
  const QString track = QInputDialog::getItem(parent, QStringLiteral("Trillomat - Import"),
                                              QStringLiteral("Which track holds the melody?"), tracks,
                                              proposed, false, &chosen);
  if (!chosen) return std::nullopt;
  return static_cast<int>(tracks.indexOf(track));
}

bool QtQuestions::ShowPage(const std::filesystem::path& page) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(FromUtf8Bytes(Utf8OfPath(page))));
}

}  // namespace trillomat
