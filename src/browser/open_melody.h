// Opening a melody file into the composer.
#pragma once

#include <filesystem>

#include "composer/composer.h"
#include "core/workspace.h"
#include "playback/play_controls.h"

namespace trillomat {

class MelodyOpener {
 public:
  MelodyOpener(Workspace& workspace, Composer& composer, PlayControls& controls, const PlaySettings& settings)
      : ws_(workspace), composer_(composer), controls_(controls), settings_(settings) {}

  /// Reads the file with the reader of the current mode. True when it replaced the composed melody, which
  /// then shows in the text view and the song information, and whose playing has ended if it played.
  /// False, and "Error when decoding file" in the log, when the melody stays as it was.
  bool Read(const std::filesystem::path& file);

  /// What follows a read that succeeded: with "AutoPlay" on presses Play and returns when that does;
  /// otherwise shows the melody from before its first element.
  void PlayOrShow();

  /// Presses Stop when a melody plays, so that a file waiting to be opened can be.
  void StopPlaying();

 private:
  Workspace& ws_;
  Composer& composer_;
  PlayControls& controls_;
  const PlaySettings& settings_;
};

}  // namespace trillomat
