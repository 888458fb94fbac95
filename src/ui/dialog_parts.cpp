#include "ui/dialog_parts.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QScreen>

#include "ui/qt_text.h"

namespace trillomat {

void OpenAt(QDialog& dialog, QSize wanted) {
  constexpr qreal kShare = 0.9;  // the frame and the panels of the desktop take the rest
  dialog.resize(wanted.boundedTo(dialog.screen()->availableSize() * kShare));
}

void SetUpDialog(QDialog& dialog, const QString& objectName, const QString& title) {
  dialog.setObjectName(objectName);
  dialog.setWindowTitle(title);
  dialog.setModal(true);
}

QPushButton* NewDialogButton(const QString& objectName, const ControlText& text, QWidget* parent) {
  QPushButton* button = NewButton(objectName, text, parent);
  button->setAutoDefault(true);
  return button;
}

QLayout* NewOkCancelRow(QDialog& dialog, const QString& ok, const QString& cancel) {
  auto* okButton = NewDialogButton(QStringLiteral("cmdOK"), {QStringLiteral("&OK"), ok}, &dialog);
  okButton->setDefault(true);
  auto* cancelButton =
      NewDialogButton(QStringLiteral("cmdCancel"), {QStringLiteral("&Cancel"), cancel}, &dialog);
  QObject::connect(okButton, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(cancelButton, &QPushButton::clicked, &dialog, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(okButton);
  row->addWidget(cancelButton);
  return row;
}

void SetUpTextBox(QPlainTextEdit& box) {
  constexpr int kCharacters = 50;
  constexpr int kLines = 8;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  box.setFont(font);
  // A melody can be one line of a megabyte. Breaking that between words takes Qt half a minute.
  box.setWordWrapMode(QTextOption::WrapAnywhere);
  box.setTabChangesFocus(true);
  const QFontMetrics metrics(box.font());
  box.setMinimumSize(metrics.averageCharWidth() * kCharacters, metrics.lineSpacing() * kLines);
}

QString WithMnemonic(std::string_view caption, char letter) {
  QString text = ToQString(caption);
  const auto place = text.indexOf(QLatin1Char(letter));
  return place < 0 ? text : text.insert(place, u'&');
}

}  // namespace trillomat
