// "Current note": the piano keys, the pause button, the octave, and the two buttons that change the
// element at the cursor.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <array>

#include "composer/composer.h"
#include "ui/piano_keyboard.h"

namespace trillomat {

class NoteEntryBox : public QGroupBox {
  Q_OBJECT

 public:
  NoteEntryBox(Composer& composer, QWidget* parent);

  /// Shows the octave and what is enabled. `rangeNote` tells the octaves of the mode.
  void ShowState(std::string_view rangeNote);

 private:
  QLayout* NewButtonColumn();
  QLayout* NewOctaveRow();
  void AddLetterKeys();

  Composer& composer_;
  PianoKeyboard* piano_;
  std::array<QPushButton*, 3> buttons_{};
  QSlider* octave_;
  std::array<QLabel*, 3> labels_{};
};

}  // namespace trillomat
