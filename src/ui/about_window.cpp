#include "ui/about_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "ui/dialog_parts.h"

namespace trillomat {
namespace {

// What the program is linked with or loads, besides the toolkit.
constexpr std::array kLibraries{
#ifndef Q_OS_WIN
    "SDL 2, zlib licence",
#endif
    "GNU C++ library, GPL version 3 with the GCC runtime library exception",
};

QLabel* NewLine(const char* name, const QString& text, QWidget* parent) {
  QLabel* label = NewLabel(name, text, nullptr, parent);
  label->setAlignment(Qt::AlignCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* NewTitle(QWidget* parent) {
  QLabel* title = NewLine("lblTitle", QStringLiteral("Trillomat"), parent);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setBold(true);
  title->setFont(font);
  return title;
}

// A line for each library that the program is made with, and its licence.
QString LibrariesText() {
  QString text = QStringLiteral("Made with\nQt %1, LGPL version 3").arg(QLatin1String(qVersion()));
  for (const char* library : kLibraries) text += QLatin1Char('\n') + QLatin1String(library);
  return text;
}

}  // namespace

AboutWindow::AboutWindow(const QString& version, QWidget* parent) : QDialog(parent) {
  SetUpDialog(*this, QStringLiteral("frmAbout"), QStringLiteral("About Trillomat"));
  auto* ok = NewDialogButton(QStringLiteral("cmdOK"),
                             {QStringLiteral("&OK"), QStringLiteral("Close the About window")}, this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &AboutWindow::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(NewTitle(this));
  layout->addWidget(NewLine("lblVersion", "Version " + version, this));
  layout->addWidget(NewLine(
      "lblCredit", QStringLiteral("A composer for mobile phone ringtone melodies, by the Trillomat authors"),
      this));
  layout->addSpacing(fontMetrics().lineSpacing());
  layout->addWidget(NewLine("lblLibraries", LibrariesText(), this));
  layout->addStretch();
  layout->addWidget(ok, 0, Qt::AlignHCenter);
}

}  // namespace trillomat
