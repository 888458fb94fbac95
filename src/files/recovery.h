// Keeps the composed song in a file while it is composed, and gives it back after a run that ended
// abnormally, or on demand. The files in the per-user state folder, N from 1 to 9 for programs that run
// at the same time:
//
//   running-N            there, and locked, while a program runs; left behind by an abnormal end
//   recovery-N.txt       the song that this run composes
//   last-N.txt           the last composed song before that
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/log.h"
#include "document/document.h"
#include "files/file_store.h"
#include "files/recovery_text.h"

namespace trillomat {

class Recovery : private DocumentObserver {
 public:
  /// How often the window calls Tick, in milliseconds.
  static constexpr int kTickInterval = 500;

  /// `folder` is the per-user state folder, made when missing; an empty one keeps nothing.
  Recovery(Document& document, FileStore& store, std::filesystem::path folder, Log& log);
  ~Recovery() override;

  /// To be called once at start. True when a run before ended abnormally and left a song, which LastSong
  /// then gives. Logs when no recovery file can be kept. Until then nothing is kept.
  bool Start();
  /// To be called at a normal end.
  void End();

  /// Writes the song if it changed since it was written or opened. An empty one is not written, so that
  /// clearing all can be taken back. A failure is logged once.
  void Tick();
  /// To be called before another song takes the place of the composed one, or that is cleared: keeps it for
  /// LastSong, if it was changed since it was opened.
  void KeepBeforeReplacing();
  /// To be called after that, unless the song that came should be kept as well.
  void SongReplaced();

  /// What "Recover last melody" brings back; nothing when there is none or its file is damaged.
  std::optional<RecoveredSong> LastSong() const { return Recorded("last-"); }

 private:
  void DocumentChanged(const ChangedRange& range) override;
  std::filesystem::path File(std::string_view kind, std::string_view extension = ".txt") const;
  std::optional<RecoveredSong> Recorded(std::string_view kind) const;
  bool FindSlot(bool abandoned);
  std::string Text() const { return WriteRecovery(document_.CurrentSong(), document_.Mode()); }
  bool Write(std::string_view kind, std::string_view text);

  Document& document_;
  FileStore& store_;
  std::filesystem::path folder_;
  Log& log_;
  std::unique_ptr<FileLock> lock_;
  int slot_ = 0;  ///< N, 0 for none
  bool changed_ = false;
  bool failureLogged_ = false;
  std::string written_;   ///< text of the recovery file
  std::string replaced_;  ///< text of the song that was opened or imported last
};

}  // namespace trillomat
