#include "files/file_browser.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/scoped_value.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

constexpr size_t kRootLength = 3;  // of "c:\"

// Names of files that cannot be listed: a few are logged one by one, the others are counted.
void LogLeftOut(const std::vector<std::string>& names, Log& log) {
  constexpr size_t kMostNamed = 10;
  for (size_t i = 0; i < std::min(names.size(), kMostNamed); ++i) {
    log.WriteLog("Left out of the list->" + LogText(names[i]), 1);
  }
  if (names.size() <= kMostNamed) return;
  log.WriteLog("Left out of the list: " + std::to_string(names.size() - kMostNamed) + " more", 1);
}

bool IsSameFolder(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code unreadable;
  return a == b || std::filesystem::equivalent(a, b, unreadable);
}

}  // namespace

bool FileBrowser::FillDrives() {
  constexpr int kLetters = 26;
  const uint32_t present = parts_.store.Drives();
  drives_.clear();
  for (int i = 0; i < kLetters; ++i) {
    if ((present >> i & 1U) != 0) drives_.push_back(parts_.store.DriveText(static_cast<char>('A' + i)));
  }
  if (!drives_.empty()) return true;
  parts_.services.log.WriteLog("Failed to get drivelist-> End program", 1);
  return false;
}

int FileBrowser::CurrentDrive() const {
  const auto drive = std::find_if(drives_.begin(), drives_.end(), [this](const std::string& entry) {
    return EqualNoCase(entry.substr(0, 1), folder_.substr(0, 1));
  });
  return drive == drives_.end() ? kNoRow : static_cast<int>(drive - drives_.begin());
}

bool FileBrowser::CanSave() const { return FileSelected() && clicked_ && !deferred_; }

const FileRow* FileBrowser::Selected() const {
  return selected_ == kNoRow ? nullptr : &rows_[static_cast<size_t>(selected_)];
}

// Only file rows are files: a folder's row is not, even where a file is named as its text.
TargetFile FileBrowser::SelectedFile() const {
  if (Selected() == nullptr) return {{}, LogText(folder_)};
  const std::string given = folder_ + Selected()->Text();
  return {FileSelected() ? parts_.store.NativePath(given) : std::filesystem::path(), LogText(given)};
}

void FileBrowser::Refresh() {
  const auto folder = parts_.store.NativePath(folder_);
  parts_.store.Sweep(folder);
  const std::string_view extension = LimitsOf(parts_.document.Mode()).extension;
  const FolderListing found = parts_.store.List(folder, "*." + std::string(extension));
  const auto selected = Selected() == nullptr ? std::nullopt : std::optional(*Selected());
  rows_.clear();
  if (folder_.size() > kRootLength) rows_.push_back({RowKind::Previous, {}});
  if (!found.complete) parts_.services.log.WriteLog("Could not list all folders in UpdateListFiles", 1);
  AddRows(found.folders, RowKind::Folder);
  if (!found.complete) parts_.services.log.WriteLog("Could not list all files in UpdateListFiles", 1);
  AddRows(found.files, RowKind::File);
  const int row = selected ? RowOf(*selected) : kNoRow;
  selected_ = selected == deferred_ || row == DocumentRow() ? row : kNoRow;
  parts_.host.ShowFiles();
}

void FileBrowser::RefreshAndSelectSaved() {
  Refresh();
  selected_ = DocumentRow();
  clicked_ = true;
  parts_.host.ShowSelectedFile();
}

void FileBrowser::AddRows(const FolderListing::Names& found, RowKind kind) {
  LogLeftOut(found.leftOut, parts_.services.log);
  for (const std::string& name : found.names) rows_.push_back({kind, name});
}

int FileBrowser::RowOf(const FileRow& row) const {
  const auto found = std::find(rows_.begin(), rows_.end(), row);
  return found == rows_.end() ? kNoRow : static_cast<int>(found - rows_.begin());
}

// The row of the file that the document belongs to.
int FileBrowser::DocumentRow() const {
  const std::filesystem::path& file = parts_.document.File();
  if (file.empty() || !IsSameFolder(file.parent_path(), parts_.store.NativePath(folder_))) return kNoRow;
  return RowOf({RowKind::File, Utf8OfPath(file.filename())});
}

void FileBrowser::Select(int row, bool clicked) {
  selected_ = row >= 0 && static_cast<size_t>(row) < rows_.size() ? row : kNoRow;
  clicked_ = clicked;
  deferred_.reset();
}

void FileBrowser::ChooseDrive(std::string_view entry) {
  if (entry.empty()) return;
  if (parts_.operations.Runs()) return parts_.host.ShowFiles();
  parts_.services.log.WriteLog("Change drive", 1);
  folder_ = std::string(entry.substr(0, 1)) + ":\\";
  Select(kNoRow, false);
  Refresh();
}

// A click that is not handled selects nothing: the row that is selected is the one that Save writes over.
void FileBrowser::Click(int row) {
  if (rightButtonDown_) return;
  if (parts_.host.ToneSounds()) {
    Select(row, true);
    if (Selected() != nullptr) deferred_ = *Selected();
    parts_.host.ShowSelectedFile();
    return parts_.host.StartClickTimer();
  }
  bool opened = false;
  if (const auto operation = parts_.operations.Begin()) {
    Select(row, true);
    opened = ReadSelected("Found sBrowseFolder without \\");
  }
  parts_.host.ShowSelectedFile();
  if (opened) parts_.host.PlayOrShow();
}

// A melody that plays would defer the click again and again, so where a file is to be opened it is stopped;
// its tone sounds to the end first.
void FileBrowser::ClickTimerRan() {
  parts_.host.StopClickTimer();
  if (!deferred_) return;
  if (parts_.operations.Runs() || rightButtonDown_) return parts_.host.StartClickTimer();
  const FileRow row = *deferred_;
  if (parts_.host.ToneSounds() && row.IsFile()) parts_.host.StopPlaying();
  deferred_.reset();
  if (RowOf(row) != kNoRow) Click(RowOf(row));
}

// Opens the selected file, if it is one. The caller ends the file operation before the song plays, so that
// another file can be opened meanwhile.
bool FileBrowser::ReadSelected(std::string_view missingBackslash) {
  parts_.host.ShowSelectedFile();
  if (!FileSelected()) return false;
  std::string given = folder_;
  if (!given.ends_with('\\')) {
    parts_.services.log.WriteLog(missingBackslash, 1);
    given += '\\';
  }
  const auto done = opener_.Open(parts_.store.NativePath(given + Selected()->name), parts_.document.Mode());
  if (done) SayDone(*done);
  return done.has_value();
}

// The second press of a double click on a file belongs to the first, which has opened it or will.
void FileBrowser::DoubleClick(int row) {
  if (row == selected_ && clicked_ && FileSelected()) return;
  bool opened = false;
  if (const auto operation = parts_.operations.Begin()) {
    Select(row, true);
    if (FileSelected()) opened = ReadSelected("sBrowseFolder without \\");
    if (Selected() != nullptr && !FileSelected()) EnterFolder(FileRow(*Selected()));
  }
  if (opened) parts_.host.PlayOrShow();
}

void FileBrowser::EnterFolder(const FileRow& row) {
  if (row.kind == RowKind::Previous) return EnterPrevious();
  folder_ += row.name + '\\';
  Refresh();
}

void FileBrowser::EnterPrevious() {
  std::string folder = folder_;
  size_t length = folder.empty() ? 0 : folder.size() - 1;
  while (length > 0 && folder[length - 1] != '\\') {
    --length;
    parts_.services.pump.PumpEvents();
  }
  // A folder without a "\" before its last character is left as it is.
  if (length > 0) folder.resize(length);
  folder_ = folder;
  Refresh();
}

void FileBrowser::OpenMenu(int row) {
  if (parts_.operations.Runs() || row <= kNoRow || static_cast<size_t>(row) >= rows_.size()) return;
  const ScopedValue down(rightButtonDown_, true);
  if (row != selected_) Select(row, row == DocumentRow());
  parts_.host.ShowSelectedFile();
  parts_.host.PopUpFileMenu();
}

}  // namespace trillomat
