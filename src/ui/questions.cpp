#include "ui/questions.h"

#include <QFileDialog>
#include <QMessageBox>

namespace trillomat {

// Whether a file may be replaced is asked afterwards, by the save command.
std::optional<std::filesystem::path> QtQuestions::AskSavePath(QWidget* parent, const SaveDialog& dialog) {
  const QString folder = QString::fromStdWString(dialog.folder.wstring());
  // The description of the first pair of the filter is a filter of Qt's own kind.
  const QString filter = QString::fromLatin1(dialog.filter.c_str());
  const QString file = QFileDialog::getSaveFileName(
      parent, QStringLiteral("Save As"), folder + QLatin1Char('/') + QString::fromStdString(dialog.fileName),
      filter, nullptr, QFileDialog::DontConfirmOverwrite);
  if (file.isEmpty()) return std::nullopt;
  return std::filesystem::path(file.toStdWString());
}

bool QtQuestions::AskYesNo(QWidget* parent, const QString& title, const QString& question) {
  return QMessageBox::question(parent, title, question) == QMessageBox::Yes;
}

}  // namespace trillomat
