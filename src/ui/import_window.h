// The window "Trillomat - Import": made anew for each import and shown modally. It changes nothing itself;
// once it is closed, Result() tells what came of it.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "exchange/import.h"
#include "exchange/second_reading.h"

namespace trillomat {

/// The text that was imported or refused last, and what became of it before.
struct ImportOrigin {
  std::string text;  ///< as it was before it was tidied; of several tunes the one that was chosen
  ReadingWay way;
  std::vector<TidyChange> changes;
};

class ImportWindow : public QDialog {
  Q_OBJECT

 public:
  /// An import starts from `before`.
  ImportWindow(const ReadRecord& before, const Services& services, QWidget* parent = nullptr);

  /// What was imported or refused; nothing when no import ran to its end.
  std::optional<Imported>& Result() { return result_; }
  const ImportOrigin& Origin() const { return origin_; }

  /// Whether "Tidy common slips" is ticked.
  bool Tidies() const { return tidy_->isChecked(); }
  void SetTidies(bool tidy) { tidy_->setChecked(tidy); }
  /// Whether the window was closed in order to import a MIDI file instead.
  bool WantsMidi() const { return wantsMidi_; }

  /// "Cancel", Escape and the window's own close button: nothing is imported. An import that runs ends as
  /// soon as it can, and the window with it.
  void reject() override;

 private:
  QWidget* NewFormatFrame();
  QWidget* NewSourceFrame();
  QLayout* NewButtonRow();

  std::array<bool, kImportOptions.size()> Options() const;
  void TakeSource();
  void UpdateImportButton();
  void Import();

  const ReadRecord& before_;
  Services services_;
  ImportChoice choice_;
  std::string source_;                ///< the text of the box, in Windows-1252
  StoppablePump* running_ = nullptr;  ///< of the import that runs
  bool cancelled_ = false;
  bool wantsMidi_ = false;
  std::optional<Imported> result_;
  ImportOrigin origin_;

  std::array<QRadioButton*, kImportOptions.size()> options_{};
  QPlainTextEdit* sourceBox_;
  QLabel* sourceNote_;  ///< what is wrong with the source
  QCheckBox* adapt_;
  QCheckBox* tidy_;
  QPushButton* import_;
};

}  // namespace trillomat
