// The window "Keys": what the keyboard does, drawn from the table that binds the keys.
#pragma once

#include <QDialog>

namespace trillomat {

/// Not modal, so that the list can be looked at while composing. Escape only hides it: the main window keeps
/// it and shows it again.
class KeysWindow : public QDialog {
  Q_OBJECT

 public:
  explicit KeysWindow(QWidget* parent);
};

}  // namespace trillomat
