// The middle of the window: the melody line, the buttons that move and erase at its cursor, and the six
// play and list buttons.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <array>

#include "composer/composer.h"
#include "playback/play_controls.h"
#include "ui/melody_line.h"

namespace trillomat {

class MelodyBox : public QGroupBox {
  Q_OBJECT

 public:
  MelodyBox(Composer& composer, PlayControls& play, const Player& player, QWidget* parent);

  MelodyLine& Line() { return *line_; }
  /// Shows what is enabled and the Play button's caption.
  void ShowState();

 signals:
  /// The melody is about to be cleared.
  void Clearing();

 private:
  QLayout* NewCursorRow();
  QLayout* NewControlRow();
  void Press(MelodyKey key, bool repeated);

  Composer& composer_;
  PlayControls& play_;
  const Player& player_;
  MelodyLine* line_;
  std::array<QPushButton*, 4> cursorButtons_{};
  std::array<QPushButton*, 6> controls_{};
};

}  // namespace trillomat
