// How every window makes its controls: with the name they are known by, a name for screen readers, and
// a way of taking the focus that leaves it with the melody when the mouse is used.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

namespace trillomat {

/// What a person who hears the window instead of seeing it is told of a control, and what the pointer
/// shows when it rests there.
struct ControlText {
  QString caption;  ///< with its "&"; empty for a control without one
  QString spoken;   ///< the accessible name
  QString tip = {};
};

/// The name of member `index` of an indexed group of controls: "cmdTone(3)".
QString IndexedName(const char* group, int index);

/// Names `control` and sets its accessible name and tooltip.
void NameControl(QWidget& control, const QString& objectName, const ControlText& text);

/// A tooltip that shows `text` as it is, whatever markup it looks like.
QString PlainToolTip(const QString& text);

/// A button that does not take the focus when it is clicked, so that the keys keep working on the
/// melody. The Tab key still reaches it.
QPushButton* NewButton(const QString& objectName, const ControlText& text, QWidget* parent);

/// Shows `text` in a label that belongs to no control; screen readers say `spoken` before it.
void ShowSpoken(QLabel& label, const QString& spoken, const QString& text);

/// A label of plain text whose mnemonic leads to `buddy`, which is null for a label without one.
QLabel* NewLabel(const QString& objectName, const QString& caption, QWidget* buddy, QWidget* parent);

}  // namespace trillomat
