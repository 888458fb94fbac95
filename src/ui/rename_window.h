// The window "Trillomat - Rename", which asks for a file's new name.
#pragma once

#include <QDialog>
#include <QLineEdit>

namespace trillomat {

class RenameWindow : public QDialog {
  Q_OBJECT

 public:
  /// `name` is the file's name without its extension.
  explicit RenameWindow(const QString& name, QWidget* parent = nullptr);

  /// The name in the box, without an extension; only valid once the window was accepted.
  QString NewName() const { return name_->text(); }

 private:
  QLineEdit* name_;
};

}  // namespace trillomat
