#include "ui/message_box_qt.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>

#include "ui/qt_text.h"

namespace trillomat {

bool QtMessageBox::ShowMessage(std::string_view message, bool offerSilence) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(QStringLiteral("Trillomat"));
  box.setTextFormat(Qt::PlainText);
  box.setText(ShownMessage(ToQString(message)));
  QCheckBox* silence = nullptr;
  if (offerSilence) {
    silence = new QCheckBox(QStringLiteral("&Don't show more of these"), &box);
    silence->setObjectName(QStringLiteral("chkSilence"));
    box.setCheckBox(silence);
  }
  box.exec();
  return silence != nullptr && silence->isChecked();
}

}  // namespace trillomat
