// "Current note": the piano keys, the pause button, the octave, and the two buttons that change the
// element at the cursor.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <array>
#include <optional>

#include "composer/composer.h"
#include "ui/piano_keyboard.h"

namespace trillomat {

class NoteEntryBox : public QGroupBox {
  Q_OBJECT

 public:
  NoteEntryBox(Composer& composer, QWidget* parent);

  /// Shows the octave and what is enabled. `rangeNote` tells the octaves of the mode.
  void ShowState(std::string_view rangeNote);
  /// Lights the key of the tone that sounds, 0 for c to 11 for b, or none.
  void ShowSounding(std::optional<int> tone) { piano_->ShowSounding(tone); }

 private:
  QLayout* NewButtonColumn();
  QLayout* NewOctaveRow();

  Composer& composer_;
  PianoKeyboard* piano_;
  std::array<QPushButton*, 3> buttons_{};
  QSlider* octave_;
  std::array<QLabel*, 3> labels_{};
};

}  // namespace trillomat
