#include "browser/file_browser.h"

#include <algorithm>

#include "browser/flag_set.h"
#include "browser/path_text.h"
#include "core/ascii.h"

namespace trillomat {
namespace {

constexpr size_t kRootLength = 3;  // of "c:\"

// A few names that cannot be shown are named, a folder full of them is summed up.
void LogLeftOut(const std::vector<std::string>& names, Log& log) {
  constexpr size_t kMostNamed = 10;
  for (size_t i = 0; i < std::min(names.size(), kMostNamed); ++i) {
    log.WriteLog("Left out of the list->" + PathText(names[i]), 1);
  }
  if (names.size() <= kMostNamed) return;
  log.WriteLog("Left out of the list: " + std::to_string(names.size() - kMostNamed) + " more", 1);
}

}  // namespace

FileBrowser::FileBrowser(Workspace& workspace, FileStore& store, const Player& player, MelodyOpener& opener,
                         BrowserView& view, PlayerView& timers)
    : ws_(workspace), store_(store), player_(player), opener_(opener), view_(view), timers_(timers) {}

bool FileBrowser::FillDrives() {
  constexpr int kLetters = 26;
  const uint32_t present = store_.GetLogicalDrives();
  drives_.clear();
  for (int i = 0; i < kLetters; ++i) {
    if ((present >> i & 1U) != 0) drives_.push_back(store_.DriveText(static_cast<char>('A' + i)));
  }
  if (!drives_.empty()) return true;
  ws_.log.WriteLog("Failed to get drivelist-> End program", 1);
  return false;
}

int FileBrowser::CurrentDrive() const {
  const auto drive = std::find_if(drives_.begin(), drives_.end(), [this](const std::string& entry) {
    return EqualNoCase(entry.substr(0, 1), sBrowseFolder.substr(0, 1));
  });
  return drive == drives_.end() ? kNoRow : static_cast<int>(drive - drives_.begin());
}

bool FileBrowser::CanSave() const {
  return Selected() != nullptr && Selected()->IsFile() && clicked_ && !clickDeferred_;
}

const FileRow* FileBrowser::Selected() const {
  return selected_ == kNoRow ? nullptr : &rows_[static_cast<size_t>(selected_)];
}

// Only file rows are files: a folder's row is not, even where a file is named as its text.
TargetFile FileBrowser::SelectedFile() const {
  if (Selected() == nullptr) return {{}, PathText(sBrowseFolder)};
  const std::string given = sBrowseFolder + Selected()->Text();
  return {Selected()->IsFile() ? store_.NativePath(given) : std::filesystem::path(), PathText(given)};
}

void FileBrowser::UpdateListFiles() {
  const auto folder = store_.NativePath(sBrowseFolder);
  PutBackLeftovers(folder, store_, ws_.log);
  const auto folders = store_.ListFolders(folder);
  const auto files = store_.ListFiles(folder, "*." + std::string(LimitsOf(ws_.iNoteMode).extension));
  const bool sameList = listedFolder_ == sBrowseFolder && listedMode_ == ws_.iNoteMode;
  const auto selected = sameList && Selected() != nullptr ? std::optional(*Selected()) : std::nullopt;
  listedFolder_ = sBrowseFolder;
  listedMode_ = ws_.iNoteMode;
  rows_.clear();
  if (sBrowseFolder.size() > kRootLength) rows_.push_back({RowKind::Previous, {}});
  AddRows(folders, RowKind::Folder, "Could not list all folders in UpdateListFiles");
  AddRows(files, RowKind::File, "Could not list all files in UpdateListFiles");
  Reselect(selected);
  view_.ShowFiles();
}

void FileBrowser::AddRows(const FolderListing& listing, RowKind kind, std::string_view failure) {
  if (!listing.complete) ws_.log.WriteLog(failure, 1);
  LogLeftOut(listing.leftOut, ws_.log);
  for (const std::string& name : listing.names) rows_.push_back({kind, name});
}

// Finds the row that was selected in the new rows; what was clicked stays clicked, or waits for its click.
void FileBrowser::Reselect(const std::optional<FileRow>& row) {
  const auto found = row ? std::find(rows_.begin(), rows_.end(), *row) : rows_.end();
  if (found == rows_.end()) return Select(kNoRow, false);
  selected_ = static_cast<int>(found - rows_.begin());
}

void FileBrowser::Select(int row, bool clicked) {
  selected_ = row >= 0 && static_cast<size_t>(row) < rows_.size() ? row : kNoRow;
  clicked_ = clicked;
  clickDeferred_ = false;
}

void FileBrowser::cboDrives_Click(std::string_view entry) {
  if (entry.empty()) return;
  ws_.log.WriteLog("Change drive", 1);
  sBrowseFolder = std::string(entry.substr(0, 1)) + ":\\";
  Select(kNoRow, false);
  UpdateListFiles();
}

// A click that is not handled selects nothing: the row that is selected is the one that Save writes over.
void FileBrowser::ListFiles_Click(int row) {
  if (rightButtonDown_) return;
  if (player_.NoteIsSounding()) {
    Select(row, true);
    clickDeferred_ = true;
    view_.ShowSelectedFile();
    return timers_.EnableTimer(kFileClickTimer);
  }
  if (!listBusy_) {
    Select(row, true);
    OpenSelected("Found sBrowseFolder without \\");
  }
  view_.ShowSelectedFile();
}

// A melody that plays would defer the click again and again, so it is stopped where a file is to be opened:
// its tone sounds to the end first.
void FileBrowser::Timer1_Tick() {
  timers_.DisableTimer(kFileClickTimer);
  if (!clickDeferred_) return;
  if (player_.NoteIsSounding() && Selected() != nullptr && Selected()->IsFile()) opener_.StopPlaying();
  if (listBusy_ || rightButtonDown_) return timers_.EnableTimer(kFileClickTimer);
  ListFiles_Click(selected_);
}

// The list is no longer busy once the file is read, so that another can be opened while this one plays.
void FileBrowser::OpenSelected(std::string_view missingBackslash) {
  bool opened = false;
  {
    const FlagSet busy(listBusy_);
    view_.ShowSelectedFile();
    if (Selected() == nullptr || !Selected()->IsFile()) return;
    std::string given = sBrowseFolder;
    if (!given.ends_with('\\')) {
      ws_.log.WriteLog(missingBackslash, 1);
      given += '\\';
    }
    opened = opener_.Read(store_.NativePath(given + Selected()->name));
  }
  if (opened) opener_.PlayOrShow();
}

void FileBrowser::ListFiles_DblClick(int row) {
  if (listBusy_) return;
  Select(row, true);
  if (Selected() == nullptr) return;
  if (Selected()->IsFile()) return OpenSelected("sBrowseFolder without \\");
  const FlagSet busy(listBusy_);
  if (Selected()->kind == RowKind::Previous) return EnterPrevious();
  sBrowseFolder += Selected()->name + '\\';
  UpdateListFiles();
}

void FileBrowser::EnterPrevious() {
  std::string folder = sBrowseFolder;
  size_t length = folder.empty() ? 0 : folder.size() - 1;
  while (length > 0 && folder[length - 1] != '\\') {
    --length;
    ws_.pump.PumpEvents();
  }
  // A folder without a "\" before its last character is left as it is.
  if (length > 0) folder.resize(length);
  sBrowseFolder = folder;
  UpdateListFiles();
}

void FileBrowser::ListFiles_MouseDown(int button, int row) {
  if (button != kRightButton) return;
  const FlagSet down(rightButtonDown_);
  if (row <= kNoRow || static_cast<size_t>(row) >= rows_.size()) return;
  if (row != selected_) Select(row, false);
  view_.ShowSelectedFile();
  view_.PopUpFileMenu();
}

}  // namespace trillomat
