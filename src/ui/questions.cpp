#include "ui/questions.h"

#include <QFileDialog>
#include <QMessageBox>

#include "files/path_text.h"
#include "ui/qt_text.h"

namespace trillomat {

// Whether a file may be replaced is asked afterwards, by the save command.
std::optional<std::filesystem::path> QtQuestions::AskSavePath(QWidget* parent, const SaveDialog& dialog) {
  // The dialog knows folders whose names are text; in any other place it opens where it opened last.
  const QString folder = FromUtf8Bytes(Utf8OfPath(dialog.folder));
  // The description of the first pair of the filter is a filter of Qt's own kind.
  const QString filter = QString::fromLatin1(dialog.filter.c_str());
  const QString file = QFileDialog::getSaveFileName(
      parent, QStringLiteral("Save As"), folder + QLatin1Char('/') + QString::fromStdString(dialog.fileName),
      filter, nullptr, QFileDialog::DontConfirmOverwrite);
  if (file.isEmpty()) return std::nullopt;
  return PathOfUtf8(file.toStdString());
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

}  // namespace trillomat
