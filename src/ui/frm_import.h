// The window "Trillomat - Import": the widgets over ImportDialog. It is made anew for each import and shown
// modally; once it is closed, ws.ImportMelody holds what is to become the composed melody, if anything.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <string>

#include "exchange/import_dialog.h"
#include "ui/qt_text.h"

namespace trillomat {

class frmImport : public QDialog {
  Q_OBJECT

 public:
  explicit frmImport(Workspace& ws, QWidget* parent = nullptr);

  /// Plain words on why the import failed, or why the melody could not be adapted; empty when all went well.
  QString Refusal() const { return ToQString(ws_.refusal); }

  /// "Cancel", Escape and the window's own close button: nothing is imported. While an import runs the
  /// window stays until that has ended.
  void reject() override;

 private:
  QWidget* NewFormatFrame();
  QWidget* NewSourceFrame();
  QLayout* NewButtonRow();

  std::array<bool, kImportOptions.size()> Options() const;
  void txtSource_Change();
  void UpdateImportButton();
  void cmdImport_Click();

  Workspace& ws_;
  ImportDialog dialog_;
  std::string source_;  // what txtSource holds, in Windows-1252
  bool importing_ = false;
  bool cancelled_ = false;

  std::array<QRadioButton*, kImportOptions.size()> optImport_{};
  QPlainTextEdit* txtSource_;
  QLabel* lblReplaced_;
  QCheckBox* chkAdapt_;
  QPushButton* cmdImport_;
};

}  // namespace trillomat
