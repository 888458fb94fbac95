// The window "Changes": what tidying changed in a text, a line a change.
#pragma once

#include <QDialog>
#include <QStringList>

namespace trillomat {

/// Not modal, so that the melody can be compared with it. Deletes itself when it is closed.
class ChangesWindow : public QDialog {
  Q_OBJECT

 public:
  /// `changes` holds a line for each.
  ChangesWindow(const QStringList& changes, QWidget* parent);
};

}  // namespace trillomat
