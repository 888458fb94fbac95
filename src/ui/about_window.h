// The window "About Trillomat".
#pragma once

#include <QDialog>

namespace trillomat {

class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  /// `version` is "major.minor.revision".
  explicit AboutWindow(const QString& version, QWidget* parent = nullptr);
};

}  // namespace trillomat
