#include "ui/rename_window.h"

#include <QFontMetrics>
#include <QLabel>
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
  layout->addLayout(
      NewOkCancelRow(*this, QStringLiteral("Rename the file"), QStringLiteral("Keep the name of the file")));
}

}  // namespace trillomat
