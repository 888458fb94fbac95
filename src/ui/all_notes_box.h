// "All notes": the two buttons that move the whole melody by an octave.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <array>

#include "composer/composer.h"

namespace trillomat {

class AllNotesBox : public QGroupBox {
  Q_OBJECT

 public:
  AllNotesBox(Composer& composer, QWidget* parent);

  /// Enables the buttons while the melody may be edited.
  void ShowState();

 private:
  Composer& composer_;
  std::array<QPushButton*, 2> buttons_{};
};

}  // namespace trillomat
