// Keeps the composed melody in a file while it is composed, and gives it back after a run that ended
// abnormally, or on demand. The files in the per-user state folder, N from 1 to 9 for programs that run
// at the same time:
//
//   running-N            there, and locked, while a program runs; left behind by an abnormal end
//   recovery-N.txt       the melody that this run composes
//   last-N.txt           the last composed melody before that
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "browser/file_store.h"
#include "browser/recovery_text.h"
#include "core/workspace.h"

namespace trillomat {

class Recovery {
 public:
  /// How often the window calls Tick, in milliseconds.
  static constexpr int kTickInterval = 500;

  /// `folder` is the per-user state folder; it is made when missing.
  Recovery(const Workspace& workspace, FileStore& store, std::filesystem::path folder)
      : ws_(workspace), store_(store), folder_(std::move(folder)) {}

  /// To be called once at start. True when a run before ended abnormally and left a melody, which
  /// LastMelody then gives. Logs when no recovery file can be kept.
  bool Start();
  /// To be called at a normal end.
  void End();

  /// The melody, the song information or the mode may have changed. Costs nothing.
  void MarkChanged() { changed_ = true; }
  /// Writes the melody if it changed since it was written or opened. An empty melody is not written, so
  /// that clearing all can be taken back. A failure is logged once.
  void Tick();
  /// To be called before another melody takes the place of the composed one: keeps that for LastMelody,
  /// if it was changed since it was opened.
  void KeepBeforeReplacing();
  /// To be called after that.
  void MelodyReplaced() { replaced_ = WriteRecovery(ws_); }

  /// What "Recover last melody" brings back; nothing when there is none or its file is damaged.
  std::optional<RecoveredMelody> LastMelody() const { return ReadFile("last-"); }

 private:
  std::filesystem::path File(std::string_view kind, std::string_view extension = ".txt") const;
  std::optional<RecoveredMelody> ReadFile(std::string_view kind) const;
  bool FindSlot(bool abandoned);
  bool Write(std::string_view kind, std::string_view text);

  const Workspace& ws_;
  FileStore& store_;
  std::filesystem::path folder_;
  std::unique_ptr<FileLock> lock_;
  int slot_ = 0;  ///< N, 0 for none
  bool changed_ = false;
  bool failureLogged_ = false;
  std::string written_;   ///< text of the recovery file
  std::string replaced_;  ///< text of the melody that was opened or imported last
};

}  // namespace trillomat
