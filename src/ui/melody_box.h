// The middle of the window: the melody line, the note strip, the buttons that move and erase at its cursor,
// and the six play and list buttons; and the keys that stand for these buttons.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <array>

#include "composer/composer.h"
#include "playback/play_controls.h"
#include "ui/key_table.h"
#include "ui/melody_line.h"
#include "ui/note_strip.h"
#include "ui/volume_slider.h"

namespace trillomat {

class MelodyBox : public QGroupBox {
  Q_OBJECT

 public:
  MelodyBox(Document& document, Composer& composer, PlayControls& play, QWidget* parent);

  MelodyLine& Line() { return *line_; }
  NoteStrip& Strip() { return *strip_; }
  const NoteStrip& Strip() const { return *strip_; }
  VolumeSlider& Volume() const { return *volume_; }
  /// Shows what is enabled and the Play button's caption.
  void ShowState();

  /// Presses the button that the keys of `command` stand for; does nothing for any other command, and
  /// nothing while the button is disabled.
  void Press(KeyCommand command);
  /// Presses "Play" while no melody plays, else "Stop".
  void PlayOrStop();

 signals:
  /// The melody is about to be cleared.
  void Clearing();

 private:
  QLayout* NewCursorRow();
  QLayout* NewControlRow();
  void Press(Control control);
  QPushButton* Button(Control control) { return controls_.at(static_cast<size_t>(control)); }
  QPushButton* ButtonOf(KeyCommand command);

  Composer& composer_;
  PlayControls& play_;
  MelodyLine* line_;
  NoteStrip* strip_;
  VolumeSlider* volume_;
  std::array<QPushButton*, 4> cursorButtons_{};
  std::array<QPushButton*, 6> controls_{};
};

}  // namespace trillomat
