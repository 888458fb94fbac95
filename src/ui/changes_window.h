// The window "Changes": what tidying changed in a text, a line a change.
#pragma once

#include <QDialog>
#include <QStringList>

namespace trillomat {

/// Leaves the main window usable, so that the melody can be compared with it. Goes for good when it is
/// closed.
class ChangesWindow : public QDialog {
  Q_OBJECT

 public:
  ChangesWindow(const QStringList& changes, QWidget* parent);
};

}  // namespace trillomat
