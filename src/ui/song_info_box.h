// "Song information": seven rows of a caption and a text box or list.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "composer/composer.h"

namespace trillomat {

class SongInfoBox : public QGroupBox {
  Q_OBJECT

 public:
  SongInfoBox(Composer& composer, QWidget* parent);

  void ShowState();

 signals:
  /// What stands in a box is not taken over: why, and what counts instead. Empty once it is taken over.
  void Refused(const QString& why);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* NewTextBox(int index);
  QComboBox* NewList(int index);
  void Edit(int index, const QString& text);
  static void ShowCaption(QLabel& label, const QString& caption);
  QString TipOf(int row) const;
  void ShowTextRow(int index);
  void ShowList(QComboBox& list, const SongInfoRow& row);

  Composer& composer_;
  QLabel* nothing_;  ///< in the place of the rows where there are none
  std::array<QLabel*, 7> labels_{};
  std::array<QLineEdit*, SongInfoPanel::kTextRows> texts_{};
  std::array<QComboBox*, 2> lists_{};
  std::array<QString, SongInfoPanel::kTextRows> refusals_{};  ///< of the texts that are shown in red
};

}  // namespace trillomat
