// Keeps every song that was not saved: the composed one while it is composed, and the last ten that were left
// without being saved. These are the files in the per-user state folder; N is a number from 1 to 9 for each
// program that runs at the same time, S a number that grows with each song:
//
//   running-N       there, and locked, while a program runs
//   recovery-N.txt  the song that this run composes, for as long as it is not saved
//   kept-S-N.txt    a song that another took the place of; all programs share these
//   left-S-N.txt    a song that a run ended with, until the user is told of it; then it is renamed to
//   kept-S-N.txt last-N.txt      what earlier versions kept
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/log.h"
#include "document/document.h"
#include "files/file_store.h"
#include "files/recovery_text.h"

namespace trillomat {

/// A song that was not saved, as it is listed.
struct KeptSong {
  std::string name;  ///< of its file, else that of its song information, else "Untitled"; UTF-8
  std::chrono::system_clock::time_point time;  ///< when it was last written, after its last change
  size_t elements = 0;
  double milliseconds = 0;     ///< length of its tones and pauses, each counted once
  std::filesystem::path file;  ///< of this folder, which keeps it
};

class Recovery : private DocumentObserver {
 public:
  /// How often the window calls Tick, in milliseconds.
  static constexpr int kTickInterval = 500;
  static constexpr size_t kMostSongs = 10;

  /// `folder` is the per-user state folder, made when missing; an empty one keeps nothing.
  Recovery(Document& document, FileStore& store, std::filesystem::path folder, Log& log);
  ~Recovery() override;

  /// To be called once at the start; before that nothing is kept. Returns the newest song that a run left
  /// without saving it, however that run ended. Logs when no song can be kept.
  std::optional<KeptSong> Start();
  /// The user was told of that song: no later Start returns it again.
  void Told();
  /// To be called at a normal end: a song that is not saved is kept, and returned by the next Start.
  void End();

  /// Writes the song if it is not saved and has changed since it was written, and deletes what was written
  /// once it is saved. A failure is logged once.
  void Tick();
  /// To be called before another song takes the place of the composed one, or that is cleared: keeps it, if
  /// it is not saved.
  void KeepBeforeReplacing();

  /// The songs that were kept, the newest first; damaged files are left out.
  std::vector<KeptSong> Songs() const;
  /// What one of these files keeps; nothing when it is gone or damaged.
  std::optional<RecoveredSong> Recovered(const std::filesystem::path& file) const;

 private:
  struct Entry {
    std::filesystem::path file;
    uint64_t number = 0;
    bool left = false;
  };

  void DocumentChanged(const ChangedRange& range) override;
  bool IsUnsaved() const { return document_.IsChanged() && !document_.IsEmpty(); }
  std::filesystem::path File(std::string_view kind, int slot, std::string_view extension = ".txt") const;
  std::filesystem::path RunsFile() const { return File("recovery-", slot_); }
  std::vector<Entry> Entries() const;
  std::optional<KeptSong> Described(const std::filesystem::path& file) const;
  bool FindSlot();
  void TakeOverAbandoned(int slot);
  bool Enlist(const std::filesystem::path& from, std::string_view kind);
  void Leave(std::string_view kind);
  void DropDoublesAndOldest();
  bool Write();

  Document& document_;
  FileStore& store_;
  std::filesystem::path folder_;
  Log& log_;
  std::unique_ptr<FileLock> lock_;
  int slot_ = 0;                             ///< N, 0 for none
  std::vector<std::filesystem::path> left_;  ///< left-S-N.txt that were there at the start
  bool changed_ = false;                     ///< since recovery-N.txt was written
  bool written_ = false;                     ///< recovery-N.txt is there
  bool cleared_ = false;                     ///< all elements went at once since the last Tick
  bool failureLogged_ = false;
};

}  // namespace trillomat
