// Opening a melody file into the composer, and bringing back a recovered melody.
#pragma once

#include <filesystem>

#include "browser/recovery.h"
#include "composer/composer.h"
#include "core/workspace.h"
#include "playback/play_controls.h"

namespace trillomat {

class MelodyOpener {
 public:
  MelodyOpener(Workspace& workspace, Composer& composer, PlayControls& controls, const PlaySettings& settings)
      : ws_(workspace), composer_(composer), controls_(controls), settings_(settings) {}

  /// Is told before and after a melody is replaced; may be null.
  Recovery* recovery = nullptr;

  /// Reads the file with the reader of the current mode, or of `mode`, which is entered first. True when it
  /// replaced the composed melody: the new one shows in the text view and the song information, and a play
  /// loop that ran has ended. False, and "Error when decoding file" in the log, when the melody stays.
  bool Read(const std::filesystem::path& file) { return Read(file, ws_.iNoteMode); }
  bool Read(const std::filesystem::path& file, FormatMode mode);

  /// What follows a read that succeeded: with "AutoPlay" on presses Play and returns when that does;
  /// otherwise shows the melody from before its first element.
  void PlayOrShow();

  /// Presses Stop when a melody plays, so that a file that waits to be opened can be.
  void StopPlaying();

  /// To be called before an import, which changes the song information even when it fails.
  void BeginImport();
  /// Replaces the composed melody by what was imported.
  void TakeImported();

  /// Replaces the composed melody, the song information and the mode by those of `melody`.
  void TakeRecovered(RecoveredMelody melody);

 private:
  void TakeImportMelody();

  Workspace& ws_;
  Composer& composer_;
  PlayControls& controls_;
  const PlaySettings& settings_;
};

}  // namespace trillomat
