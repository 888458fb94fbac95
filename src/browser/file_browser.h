// The file browser beside the composer: drives, the list of folders and melody files, and what clicks
// and the right-click menu do. The window calls the event handlers and shows the state.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "browser/browser_view.h"
#include "browser/file_row.h"
#include "browser/file_store.h"
#include "browser/open_melody.h"
#include "browser/safe_save.h"
#include "core/workspace.h"
#include "playback/player.h"

namespace trillomat {

class FileBrowser {
 public:
  static constexpr int kNoRow = -1;
  static constexpr int kRightButton = 2;

  /// `timers` runs timer 1 of the window, whose tick calls Timer1_Tick.
  FileBrowser(Workspace& workspace, FileStore& store, const Player& player, MelodyOpener& opener,
              BrowserView& view, PlayerView& timers);

  /// The current browse folder in the given form, ending in "\".
  std::string sBrowseFolder = "c:\\";

  // What the window shows.
  /// The entries of `cboDrives`.
  const std::vector<std::string>& Drives() const { return drives_; }
  /// Index into Drives() of the drive that the browse folder is on, kNoRow when it is on none.
  int CurrentDrive() const;
  const std::vector<FileRow>& Rows() const { return rows_; }
  /// Index of the selected row or kNoRow.
  int SelectedRow() const { return selected_; }
  /// True while "Save" has a file to write over; the window also locks it while a melody plays.
  bool CanSave() const;
  /// True while a click or double click is being handled: a file is being read, or a folder entered.
  bool IsBusy() const { return listBusy_; }

  /// Reads the drive list. False, and "Failed to get drivelist-> End program" in the log, when the program
  /// has to end.
  bool FillDrives();
  /// Reads the rows anew, and first puts back what an interrupted save left in the folder. The selected row
  /// stays selected while folder and mode are the same and it is still there.
  void UpdateListFiles();

  // Event handlers. A row is given by its index, kNoRow for none.
  void cboDrives_Click(std::string_view entry);
  void ListFiles_Click(int row);
  void ListFiles_DblClick(int row);
  /// `row` is the row under the pointer.
  void ListFiles_MouseDown(int button, int row);
  void Timer1_Tick();
  void mnuDelete_Click();
  void mnuRename_Click();

  /// Opens a file named on the command line or dropped onto the window as a click in the list would: the
  /// mode follows its extension, the browse folder its folder, and its row is selected. False when it was
  /// not opened; a file that is no melody file is said so to the user (level 2).
  bool OpenFile(const std::filesystem::path& file);

  /// The file of the selected row: the browse folder and the row's text. No path when it is no file's.
  TargetFile SelectedFile() const;

 private:
  const FileRow* Selected() const;
  void Select(int row, bool clicked);
  void Reselect(const std::optional<FileRow>& row);
  void SelectFile(const std::string& name);
  void OpenSelected(std::string_view missingBackslash);
  void EnterPrevious();
  void AddRows(const FolderListing& listing, RowKind kind, std::string_view failure);
  void RenameTo(const TargetFile& file, const std::string& newName);

  Workspace& ws_;
  FileStore& store_;
  const Player& player_;
  MelodyOpener& opener_;
  BrowserView& view_;
  PlayerView& timers_;
  std::vector<std::string> drives_;
  std::vector<FileRow> rows_;
  std::string listedFolder_;
  FormatMode listedMode_ = FormatMode::IMelody;
  int selected_ = kNoRow;
  bool clicked_ = false;        ///< the selected row was clicked, not only right-clicked
  bool clickDeferred_ = false;  ///< until timer 1 runs the click
  bool listBusy_ = false;       ///< a click or double click is being handled
  bool rightButtonDown_ = false;
};

}  // namespace trillomat
