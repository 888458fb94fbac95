// What the composer needs of the window that shows it. Abstract so that the composer runs and is
// tested without one.
#pragma once

#include "composer/melody_text_view.h"

namespace trillomat {

class ComposerView {
 public:
  ComposerView() = default;
  ComposerView(const ComposerView&) = delete;
  ComposerView& operator=(const ComposerView&) = delete;
  virtual ~ComposerView() = default;

  /// Puts the two melody texts into their boxes and the carets where they belong.
  virtual void ShowMelody(const MelodyViewText& text) = 0;

  /// Something else changed that the window shows: what is enabled or selected, a caption, a row of
  /// the song information. The window reads all of it from the Composer again.
  virtual void ShowComposer() = 0;

  /// The format mode changed: the file list shows other files now.
  virtual void UpdateListFiles() = 0;
};

}  // namespace trillomat
