// Keeps the composed melody in a file while it is composed, and gives it back after a run that ended
// abnormally, or on demand. The files in the per-user state folder, N from 1 to 9 for programs that run
// at the same time:
//
//   running-N            there, and locked, while a program runs; left behind by an abnormal end
//   recovery-N.txt       the melody of this run
//   last-N.txt           the last composed melody before that
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "browser/file_store.h"
#include "browser/recovery_text.h"
#include "core/workspace.h"

namespace trillomat {

class Recovery {
 public:
  /// How often the window calls Tick: milliseconds.
  static constexpr int kTickInterval = 500;

  Recovery(const Workspace& workspace, FileStore& store, std::filesystem::path folder);

  /// To be called once at start, with the folder made. True when the run before ended abnormally and left a
  /// melody, which LastMelody gives. Logs when no recovery file can be kept.
  bool Start();
  /// To be called at a normal end.
  void End();

  /// The melody, the song information or the mode may have changed. Costs nothing.
  void MarkChanged() { changed_ = true; }
  /// Writes the melody if it changed since the last call. An empty melody is not written, so clearing all
  /// can be taken back.
  void Tick();
  /// To be called before another melody takes the place of the composed one: keeps it for LastMelody, if
  /// it was changed since the last call of MelodyReplaced.
  void KeepBeforeReplacing();
  /// To be called after that.
  void MelodyReplaced();

  /// What "Recover last melody" brings back; nothing when there is none or its file is damaged.
  std::optional<RecoveredMelody> LastMelody() const;

 private:
  std::filesystem::path File(std::string_view name) const;
  bool TakeSlot(int slot, bool onlyAbandoned);

  const Workspace& ws_;
  FileStore& store_;
  std::filesystem::path folder_;
  std::unique_ptr<FileLock> lock_;
  int slot_ = 0;  ///< 0 for none
  bool changed_ = false;
  std::string written_;   ///< text of the recovery file
  std::string replaced_;  ///< text of the melody that was opened or imported last
};

}  // namespace trillomat
