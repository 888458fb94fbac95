// What the file commands need of the composer, the player and the window, and what they work on. Abstract
// so that they run and are tested without them. Texts are UTF-8.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/services.h"
#include "document/document.h"
#include "files/file_operations.h"
#include "files/file_store.h"
#include "formats/formats.h"

namespace trillomat {

class KeptFiles;
class RecentFiles;
class Recovery;

/// A message in the message bar, and what its button offers.
struct FileMessage {
  enum class Offer {
    None,
    Restore,      ///< puts the file back that was replaced or removed last
    Recover,      ///< brings the melody back that the last run left
    ReadBetter,   ///< reads what was read last in the way that was found better
    ShowChanges,  ///< lists what tidying changed
    CopySamples,  ///< copies the sample melodies that are shown
  };

  std::string text = {};  ///< empty: the message before goes, and none takes its place
  Offer offer = Offer::None;
  std::string caption = {};  ///< of the button for ReadBetter
};

/// A text that was read again, in the way that Offer::ReadBetter offered.
struct BetterReading {
  ReadResult read;  ///< not refused
  FormatMode mode;
  std::string_view step;  ///< as in FilesHost::TakeIn
  FileMessage done;       ///< what to say once it is taken in
  bool plays = false;     ///< it is played then, with "AutoPlay" on
  bool pasted = false;    ///< taken in by FilesHost::PasteIn
};

/// What the save dialog opens with.
struct SaveDialog {
  std::filesystem::path folder;
  std::string fileName;   ///< proposed
  std::string filter;     ///< as BuildDialogFilter makes it
  std::string extension;  ///< of the current format, without the dot
};

/// What the open dialog opens with.
struct OpenDialog {
  std::filesystem::path folder;
  std::string filter;  ///< "Melodies (*.imy *.emy *.rtx *.mel)"
};

class FilesHost {
 public:
  FilesHost() = default;
  FilesHost(const FilesHost&) = delete;
  FilesHost& operator=(const FilesHost&) = delete;
  virtual ~FilesHost() = default;

  // The composer and the player.
  virtual bool ToneSounds() const = 0;
  /// Whether the melody may be edited now: not while it plays.
  virtual bool MayEdit() const = 0;
  /// Presses Stop when a melody plays, so that a file can be opened that waits for it.
  virtual void StopPlaying() = 0;
  /// Puts what was read, which was not refused, in the place of the song, as one step of the history, and
  /// enters `mode`. The cursor is before the first element then, the phone display rests, a play loop that
  /// ran has ended, and the document belongs to `file`, empty for none. `step` is the name of the step:
  /// "opening".
  virtual void TakeIn(ReadResult&& read, FormatMode mode, const std::filesystem::path& file,
                      std::string_view step) = 0;
  /// Pastes elements that are the last paste, read in a better way: in its place, if it is the last step.
  virtual void PasteIn(ElementList&& elements) = 0;
  /// What follows an opening: with "AutoPlay" on presses Play, and returns when the melody has ended; else
  /// shows it.
  virtual void PlayOrShow() = 0;

  // The file list. The window reads everything from the FileBrowser again.
  /// The rows of `ListFiles`, the selected row, the folder or FileBrowser::CanSave changed. Filling the
  /// widget must not count as a click.
  virtual void ShowFiles() = 0;
  /// Only the selected row or FileBrowser::CanSave changed.
  virtual void ShowSelectedFile() = 0;
  /// Pops up `mnuRight` at the pointer.
  virtual void PopUpFileMenu() = 0;
  /// The click timer, whose ticks call FileBrowser::ClickTimerRan until it is stopped.
  virtual void StartClickTimer() = 0;
  virtual void StopClickTimer() = 0;
  /// Shows a message in the place of the one before. FileBrowser::Accept does what it offers.
  virtual void Say(const FileMessage& message) = 0;

  // Reading a text in another way than as a file of its format: tidied, or as the format that it looks like.
  /// The message on a file's bytes that were read as one of `mode`: `said`, and where they were refused or
  /// not wholly understood the offer of a better reading, if there is one.
  virtual FileMessage WithBetterReading(std::string said, std::string_view bytes, FormatMode mode,
                                        const ReadResult& read) = 0;
  /// Reads in the way that was offered last; asks which tune where there are several. Nothing when cancelled.
  virtual std::optional<BetterReading> ReadBetter() = 0;
  /// Lists what tidying changed in what was read last.
  virtual void ShowChanges() = 0;

  /// The user's folder for music, whether it exists or not.
  virtual std::filesystem::path MusicFolder() const = 0;
  /// Shows how far a long piece of work has come; an empty text at its end.
  virtual void ShowProgress(std::string_view text) = 0;

  // Questions: each returns with the user's answer.
  /// Shows `frmRename` with `name` in `txtName`. Returns the text after "OK", nothing after "Cancel".
  virtual std::optional<std::string> AskNewName(std::string_view name) = 0;
  /// Shows the system's save dialog, told not to ask before a file is replaced. Returns the path as the
  /// dialog gave it, nothing when cancelled.
  virtual std::optional<std::filesystem::path> AskSavePath(const SaveDialog& dialog) = 0;
  /// Shows the system's dialog to open a file. Returns the file, nothing when cancelled.
  virtual std::optional<std::filesystem::path> AskOpenPath(const OpenDialog& dialog) = 0;
  /// Shows a Yes/No message box; true for Yes.
  virtual bool AskYesNo(std::string_view title, std::string_view question) = 0;
  /// Sets the caption of `cmdSave` and of `cmdSaveAs`.
  virtual void SetSaveCaption(std::string_view caption) = 0;
  virtual void SetSaveAsCaption(std::string_view caption) = 0;
};

/// What the file commands work on; all of it outlives them.
struct FileParts {
  Document& document;
  ReadRecord& record;  ///< what the next read starts from
  FileStore& store;
  FileOperations& operations;
  Recovery& recovery;
  KeptFiles& kept;
  RecentFiles& recent;
  FilesHost& host;
  Services services;
};

}  // namespace trillomat
