#include "ui/frm_rename.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialog_parts.h"

namespace trillomat {

frmRename::frmRename(const QString& name, QWidget* parent)
    : QDialog(parent), txtName_(new QLineEdit(name, this)) {
  constexpr int kCharacters = 36;
  SetUpDialog(*this, QStringLiteral("frmRename"), QStringLiteral("Trillomat - Rename"));
  NameControl(*txtName_, QStringLiteral("txtName"),
              {{}, QStringLiteral("New name of the file"), QStringLiteral("The name without its extension")});
  txtName_->setMinimumWidth(QFontMetrics(txtName_->font()).averageCharWidth() * kCharacters);
  txtName_->selectAll();
  txtName_->setFocus();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(NewLabel(QStringLiteral("lblName"), QStringLiteral("&New name:"), txtName_, this));
  layout->addWidget(txtName_);
  layout->addStretch();
  layout->addLayout(NewButtonRow());
}

QLayout* frmRename::NewButtonRow() {
  auto* cmdOK = NewDialogButton(QStringLiteral("cmdOK"),
                                {QStringLiteral("&OK"), QStringLiteral("Rename the file")}, this);
  cmdOK->setDefault(true);
  auto* cmdCancel =
      NewDialogButton(QStringLiteral("cmdCancel"),
                      {QStringLiteral("&Cancel"), QStringLiteral("Keep the name of the file")}, this);
  connect(cmdOK, &QPushButton::clicked, this, &frmRename::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &frmRename::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cmdOK);
  row->addWidget(cmdCancel);
  return row;
}

}  // namespace trillomat
