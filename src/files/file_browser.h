// The file browser beside the composer: drives, the list of folders and melody files, and what clicks
// and the right-click menu do. The window calls the event handlers and shows the state. While a file
// operation runs, none of them does anything but defer a click.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_row.h"
#include "files/files_host.h"
#include "files/opener.h"
#include "files/recovery.h"
#include "files/save.h"

namespace trillomat {

class FileBrowser {
 public:
  static constexpr int kNoRow = -1;

  explicit FileBrowser(const FileParts& parts) : parts_(parts), opener_(parts) {}

  // What the window shows.
  /// The current browse folder in the given form, ending in "\".
  const std::string& Folder() const { return folder_; }
  /// The same, but while the sample melodies are shown, the folder before: where the next start begins, and
  /// where files are saved.
  const std::string& OwnFolder() const;
  /// The entries of `cboDrives`.
  const std::vector<std::string>& Drives() const { return drives_; }
  /// Index into Drives() of the drive that the browse folder is on; kNoRow when the list lacks it.
  int CurrentDrive() const;
  const std::vector<FileRow>& Rows() const { return rows_; }
  /// Index of the selected row or kNoRow.
  int SelectedRow() const { return selected_; }
  /// True while "Save" has a file to write over; the window also locks it while a melody plays.
  bool CanSave() const;

  /// At start, before the rows are read.
  void SetFolder(std::string folder) { folder_ = std::move(folder); }
  /// Reads the drive list. False, and "Failed to get drivelist-> End program" in the log, when the program
  /// has to end.
  bool FillDrives();
  /// Reads the rows anew, and deletes what killed programs left of their saves in the folder. The selected
  /// row stays selected if it is still there and is the file that the document belongs to, or waits for its
  /// click.
  void Refresh();

  // Event handlers. A row is given by its index, kNoRow for none.
  void ChooseDrive(std::string_view entry);
  void Click(int row);
  /// Enters a folder. A file has been opened by the click before it.
  void DoubleClick(int row);
  /// The right button went down on `row`: selects it without opening it, and pops up `mnuRight`.
  void OpenMenu(int row);
  void ClickTimerRan();
  void DeleteSelected();
  void RenameSelected();

  /// Opens a file named on the command line or dropped onto the window as a click in the list would: the
  /// mode follows its extension, the browse folder its folder, and its row is selected. False when it was
  /// not opened; a file that is no melody file is said so to the user (level 2).
  bool OpenFile(const std::filesystem::path& file);
  /// Puts what was imported, which was not refused, in the place of the song, and says `done`. The caller
  /// holds the token of the file operation. Nothing is selected any more.
  void TakeImported(ReadResult&& read, const FileMessage& done = {});

  // Commands that put another song in the place of the composed one, which is kept if it was not saved. None
  // of them does anything while a melody plays.
  /// An empty song that belongs to no file.
  void New();
  /// Asks for a file and opens it.
  void Open();
  /// Opens one of the files that were opened or saved last; one that is gone is said to be, and forgotten.
  void OpenRecent(const std::filesystem::path& file);
  /// Brings back one of Recovery's songs; it belongs to no file. Says (level 2) when it is gone.
  void Recover(const std::filesystem::path& kept);
  /// The same for the one that was kept last.
  void RecoverLast();

  // The sample melodies.
  /// Lists what is in this folder, and offers to copy it into one of the user's own.
  void ShowSamples(const std::filesystem::path& samples);
  /// The same, unless the list has melodies of the user's own, of whatever format.
  void ShowSamplesToNewcomer(const std::filesystem::path& samples);

  // Messages that offer something.
  /// At start: offers the song that the last run left. Other messages may come in between; the offer stands
  /// until the song is recovered or CloseMessage is called.
  void OfferLeft(const KeptSong& left);
  /// Does what a message offered. Restore puts the file back that was replaced or removed last.
  void Accept(FileMessage::Offer offer);
  /// The user has read the message.
  void CloseMessage();

  /// The file of the selected row: the browse folder and the row's text. No path when it is no file's.
  TargetFile SelectedFile() const;
  /// After a Save As: reads the rows anew and selects the document's file, if the list shows it.
  void RefreshAndSelectSaved();

 private:
  const FileRow* Selected() const;
  bool FileSelected() const { return Selected() != nullptr && Selected()->IsFile(); }
  void Select(int row, bool clicked);
  int RowOf(const FileRow& row) const;
  int DocumentRow() const;
  bool ReadSelected(std::string_view missingBackslash);
  void EnterPrevious();
  void EnterFolder(const FileRow& row);
  FileMessage Delete(const TargetFile& file);
  void Restore();
  void CopySamples();
  bool EnterPlace(const std::filesystem::path& folder);
  bool TakeBetter();
  void SayDone(const FileMessage& done = {});
  void AddRows(const FolderListing::Names& found, RowKind kind);
  std::string Rename(const TargetFile& file, const std::string& newGiven);

  FileParts parts_;
  Opener opener_;
  std::string folder_ = "c:\\";
  std::vector<std::string> drives_;
  std::vector<FileRow> rows_;
  int selected_ = kNoRow;
  bool clicked_ = false;             ///< the selected row was clicked, not only right-clicked
  std::optional<FileRow> deferred_;  ///< the row whose click waits for the click timer
  bool rightButtonDown_ = false;
  std::optional<KeptSong> left_;  ///< the song that the last run left, while it is offered
  std::string samplesFolder_;     ///< that was shown last; empty for none
  std::string folderBeforeSamples_;
};

}  // namespace trillomat
