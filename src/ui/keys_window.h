// The window "Keys": what the keyboard does, drawn from the table that binds the keys.
#pragma once

#include <QDialog>

namespace trillomat {

/// Leaves the main window usable, so that the list can be looked at while composing. Closed by Escape; to
/// be shown again, it is kept by who made it.
class KeysWindow : public QDialog {
  Q_OBJECT

 public:
  explicit KeysWindow(QWidget* parent);
};

}  // namespace trillomat
