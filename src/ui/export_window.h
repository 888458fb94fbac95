// The window "Trillomat - Export": the exports of the composed song. It is made anew each time and shown
// modally, and changes nothing but itself. It says beforehand what each export would lose of the song.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <memory>
#include <string>

#include "exchange/phone_fit.h"

namespace trillomat {

class ExportWindow : public QDialog {
  Q_OBJECT

 public:
  /// `modernSpelling` ticks the check box that ModernSpelling() tells.
  ExportWindow(std::shared_ptr<const Song> song, bool modernSpelling, const Services& services,
               QWidget* parent = nullptr);

  /// The Result in Windows-1252 and with its own line ends, which the box does not keep.
  const std::string& Result() const { return result_; }

  bool ModernSpelling() const { return modern_->isChecked(); }

  /// "Close", Escape and the window's own close button. An export that runs ends as soon as it can, and the
  /// window with it.
  void reject() override;

 private:
  QWidget* NewTargetFrame();
  QWidget* NewResultFrame(bool modernSpelling);
  QWidget* NewFitFrame();
  QLayout* NewButtonRow();

  void Press(const ExportButton& button);
  void MakeText(Phone phone);
  void ShowResult(std::string result, const QString& status);
  void ChangeSpelling();
  void FindFit(Phone phone);
  void ShowFits();
  RtttlSpelling Spelling() const;
  QString StatusOf(Phone phone) const;

  std::shared_ptr<const Song> song_;
  Services services_;
  std::string result_;
  StoppablePump* running_ = nullptr;  ///< of the export that runs
  bool closing_ = false;
  std::optional<Phone> shown_;  ///< the phone that the Result is for; nothing while there is none
  std::array<PhoneFit, kExportTargets.size()> fits_;

  QPlainTextEdit* resultBox_;
  QLabel* status_;
  QLabel* fitsLabel_;
  QCheckBox* modern_;
  QPushButton* saveToFile_;
};

}  // namespace trillomat
