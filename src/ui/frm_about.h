// The window "About Trillomat".
#pragma once

#include <QDialog>

namespace trillomat {

class frmAbout : public QDialog {
  Q_OBJECT

 public:
  /// `version` is "major.minor.revision".
  explicit frmAbout(const QString& version, QWidget* parent = nullptr);
};

}  // namespace trillomat
