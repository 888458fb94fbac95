// The window "Trillomat - Export": the widgets over the exports of the composed melody. It is made anew each
// time and shown modally. The composed melody stays as it is; ws.ExportMelody is the copy worked on.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <string>

#include "exchange/export_targets.h"

namespace trillomat {

class frmExport : public QDialog {
  Q_OBJECT

 public:
  explicit frmExport(Workspace& ws, QWidget* parent = nullptr);

  /// The Result in Windows-1252 and with its own line ends, which txtResult does not keep.
  const std::string& Result() const { return result_; }

  /// "Close", Escape and the window's own close button: empties ws.ExportMelody. While an export runs the
  /// window stays until that has ended.
  void reject() override;

 private:
  QWidget* NewTargetFrame();
  QWidget* NewResultFrame();
  QLayout* NewButtonRow();

  void cmdExport_Click(const ExportButton& button);
  void MakeText(Phone phone);
  void ShowResult(std::string result, const QString& status);

  Workspace& ws_;
  std::string result_;
  bool exporting_ = false;
  bool closing_ = false;

  QPlainTextEdit* txtResult_;
  QLabel* lblStatus_;
  QPushButton* cmdSaveToFile_;
};

}  // namespace trillomat
