#include "ui/changes_window.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "ui/dialog_parts.h"

namespace trillomat {

ChangesWindow::ChangesWindow(const QStringList& changes, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmChanges"));
  setWindowTitle(QStringLiteral("Trillomat - Changes"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* list = new QPlainTextEdit(this);
  NameControl(*list, QStringLiteral("txtChanges"), {{}, QStringLiteral("What tidying changed")});
  SetUpTextBox(*list);
  list->setReadOnly(true);
  list->setPlainText(changes.join(u'\n'));
  auto* column = new QVBoxLayout(this);
  column->addWidget(list);
  OpenAt(*this, sizeHint() * kRoomToSpare);
}

}  // namespace trillomat
