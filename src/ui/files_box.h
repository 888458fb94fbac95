// "Files": the drive list, the file list, and the buttons that save, import and export.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>

namespace trillomat {

class FilesBox : public QGroupBox {
  Q_OBJECT

 public:
  explicit FilesBox(QWidget* parent);

 private:
  QLayout* NewButtons();

  QComboBox* cboDrives_;
  QListWidget* listFiles_;
  QPushButton* cmdSave_;
  QPushButton* cmdSaveAs_;
  QPushButton* cmdImport_;
  QPushButton* cmdExport_;
};

}  // namespace trillomat
