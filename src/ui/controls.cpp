#include "ui/controls.h"

#include "ui/qt_text.h"

namespace trillomat {

QString IndexedName(const char* group, int index) {
  return QString::fromLatin1(group) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

void NameControl(QWidget& control, const QString& objectName, const ControlText& text) {
  control.setObjectName(objectName);
  control.setAccessibleName(text.spoken);
  control.setToolTip(text.tip);
}

QString PlainToolTip(const QString& text) {
  return QStringLiteral("<p style=\"white-space:pre-wrap\">") + ShownMessage(text).toHtmlEscaped() +
         QStringLiteral("</p>");
}

QPushButton* NewButton(const QString& objectName, const ControlText& text, QWidget* parent) {
  auto* button = new QPushButton(text.caption, parent);
  NameControl(*button, objectName, text);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAutoDefault(false);
  return button;
}

void ShowSpoken(QLabel& label, const QString& spoken, const QString& text) {
  label.setText(text);
  const QString name = text.isEmpty() ? spoken : spoken + QStringLiteral(": ") + text;
  if (label.accessibleName() != name) label.setAccessibleName(name);
}

QLabel* NewLabel(const QString& objectName, const QString& caption, QWidget* buddy, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setObjectName(objectName);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(buddy);
  return label;
}

}  // namespace trillomat
