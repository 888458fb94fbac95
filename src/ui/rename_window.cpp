#include "ui/rename_window.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialog_parts.h"
#include "ui/text_line.h"

namespace trillomat {

RenameWindow::RenameWindow(const QString& name, QWidget* parent)
    : QDialog(parent), name_(new QLineEdit(name, this)) {
  constexpr int kCharacters = 36;
  SetUpDialog(*this, QStringLiteral("frmRename"), QStringLiteral("Trillomat - Rename"));
  NameControl(*name_, QStringLiteral("txtName"),
              {{}, QStringLiteral("New name of the file"), QStringLiteral("The name without its extension")});
  name_->setMinimumWidth(QFontMetrics(name_->font()).averageCharWidth() * kCharacters);
  SetUpTextLine(*name_, Characters::All);
  name_->selectAll();
  name_->setFocus();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(NewLabel(QStringLiteral("lblName"), QStringLiteral("&New name:"), name_, this));
  layout->addWidget(name_);
  layout->addStretch();
  layout->addLayout(NewButtonRow());
}

QLayout* RenameWindow::NewButtonRow() {
  auto* ok = NewDialogButton(QStringLiteral("cmdOK"),
                             {QStringLiteral("&OK"), QStringLiteral("Rename the file")}, this);
  ok->setDefault(true);
  auto* cancel =
      NewDialogButton(QStringLiteral("cmdCancel"),
                      {QStringLiteral("&Cancel"), QStringLiteral("Keep the name of the file")}, this);
  connect(ok, &QPushButton::clicked, this, &RenameWindow::accept);
  connect(cancel, &QPushButton::clicked, this, &RenameWindow::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

}  // namespace trillomat
