#include "ui/controls.h"

namespace trillomat {

void NameControl(QWidget& control, const QString& objectName, const ControlText& text) {
  control.setObjectName(objectName);
  control.setAccessibleName(text.spoken);
  control.setToolTip(text.tip);
}

QPushButton* NewButton(const QString& objectName, const ControlText& text, QWidget* parent) {
  auto* button = new QPushButton(text.caption, parent);
  NameControl(*button, objectName, text);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAutoDefault(false);
  return button;
}

QLabel* NewLabel(const QString& objectName, const QString& caption, QWidget* buddy, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setObjectName(objectName);
  label->setBuddy(buddy);
  return label;
}

void ShowText(QLineEdit& box, const QString& text) {
  if (box.text() != text) box.setText(text);
}

}  // namespace trillomat
