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

  /// Shows the rows of the panel as they are now.
  void ShowState();

 signals:
  /// Why the text of a box is not taken into the song, and what counts instead; empty once it is taken.
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
  QLabel* noRows_;  ///< what stands in the place of the rows where there are none
  std::array<QLabel*, 7> labels_{};
  std::array<QLineEdit*, SongInfoPanel::kTextRows> texts_{};
  std::array<QComboBox*, 2> lists_{};
  std::array<QString, SongInfoPanel::kTextRows> refusals_{};  ///< of the texts that are shown in red
};

}  // namespace trillomat
