// The window "Trillomat - Export": the exports of the composed song. It is made anew each time and shown
// modally, and changes nothing but itself.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <string>

#include "exchange/export.h"

namespace trillomat {

class ExportWindow : public QDialog {
  Q_OBJECT

 public:
  ExportWindow(Song song, const Services& services, QWidget* parent = nullptr);

  /// The Result in Windows-1252 and with its own line ends, which the box does not keep.
  const std::string& Result() const { return result_; }

  /// "Close", Escape and the window's own close button. An export that runs ends as soon as it can, and the
  /// window with it.
  void reject() override;

 private:
  QWidget* NewTargetFrame();
  QWidget* NewResultFrame();
  QLayout* NewButtonRow();

  void Press(const ExportButton& button);
  void MakeText(Phone phone);
  void ShowResult(std::string result, const QString& status);

  const Song song_;
  Services services_;
  std::string result_;
  StoppablePump* running_ = nullptr;  ///< of the export that runs
  bool closing_ = false;

  QPlainTextEdit* resultBox_;
  QLabel* status_;
  QPushButton* saveToFile_;
};

}  // namespace trillomat
