// The file commands over a real temporary folder as drive C:, with a host that remembers what it was told and
// answers as the test says.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "files/file_browser.h"
#include "files/folder_keeper.h"
#include "files/kept_files.h"
#include "files/recent_files.h"
#include "files/recovery.h"
#include "files/save_commands.h"
#include "support/fakes.h"
#include "support/folder_store.h"
#include "support/sample_notes.h"
#include "support/temp_folder.h"

namespace trillomat {

class FakeFilesHost : public FilesHost {
 public:
  explicit FakeFilesHost(Document& document) : document_(document) {}

  FileBrowser* browser = nullptr;
  std::vector<std::string> calls;
  std::vector<std::string> progress;
  std::string notice;  ///< what was said last
  FileMessage::Offer offer = FileMessage::Offer::None;
  bool toneSounds = false;
  bool plays = false;
  int opened = 0;                                 ///< how often PlayOrShow was called
  std::optional<std::string> newName;             ///< what frmRename answers
  std::optional<std::filesystem::path> savePath;  ///< what the save dialog answers
  std::optional<SaveDialog> dialog;               ///< what it was opened with
  std::optional<std::filesystem::path> openPath;  ///< what the open dialog answers
  std::optional<OpenDialog> openDialog;
  std::filesystem::path musicFolder;
  std::string lastBytes;  ///< that were read
  std::optional<BetterReading> better;
  bool yes = true;                  ///< what the Yes/No box answers
  std::function<void()> meanwhile;  ///< while the menu or a dialog is open, or a song plays

  bool MayEdit() const override { return !plays; }
  bool ToneSounds() const override { return toneSounds; }
  void StopPlaying() override { calls.emplace_back("stop"); }
  void EnterMode(FormatMode mode) {
    document_.Apply({.mode = mode});
    browser->Refresh();
  }
  void TakeIn(ReadResult&& read, FormatMode mode, const std::filesystem::path& file,
              std::string_view /*step*/) override {
    const bool otherMode = mode != document_.Mode();
    document_.Apply({.removed = document_.Size(),
                     .inserted = std::move(read.elements),
                     .info = read.record.info,
                     .cursor = -1,
                     .mode = mode,
                     .file = SongFile{file, file.empty() ? SongFile::kNothing : SongFile::kThisSong}});
    if (otherMode) browser->Refresh();
  }
  void PasteIn(ElementList&& /*elements*/) override { calls.emplace_back("paste"); }
  void PlayOrShow() override {
    ++opened;
    Meanwhile();
  }
  void ShowFiles() override {}
  std::filesystem::path MusicFolder() const override { return musicFolder; }
  void ShowProgress(std::string_view text) override { progress.emplace_back(text); }
  void ShowSelectedFile() override {}
  void PopUpFileMenu() override {
    calls.emplace_back("menu");
    Meanwhile();
  }
  void StartClickTimer() override { calls.emplace_back("timer on"); }
  void StopClickTimer() override { calls.emplace_back("timer off"); }
  void Say(const FileMessage& message) override {
    notice = message.text;
    offer = message.offer;
  }
  std::optional<std::string> AskNewName(std::string_view name) override {
    calls.push_back("rename " + std::string(name));
    Meanwhile();
    return newName;
  }
  std::optional<std::filesystem::path> AskSavePath(const SaveDialog& asked) override {
    dialog = asked;
    Meanwhile();
    return savePath;
  }
  std::optional<std::filesystem::path> AskOpenPath(const OpenDialog& asked) override {
    openDialog = asked;
    Meanwhile();
    return openPath;
  }
  FileMessage WithBetterReading(std::string said, std::string_view bytes, FormatMode /*mode*/,
                                const ReadResult& /*read*/) override {
    lastBytes = bytes;
    if (!better) return {said};
    return {said, FileMessage::Offer::ReadBetter, "Open tidied"};
  }
  std::optional<BetterReading> ReadBetter() override {
    Meanwhile();
    return std::exchange(better, std::nullopt);
  }
  void ShowChanges() override { calls.emplace_back("changes"); }
  bool AskYesNo(std::string_view title, std::string_view question) override {
    calls.push_back(std::string(title) + "|" + std::string(question));
    return yes;
  }
  void SetSaveCaption(std::string_view caption) override { calls.emplace_back(caption); }
  void SetSaveAsCaption(std::string_view caption) override { calls.emplace_back(caption); }

 private:
  void Meanwhile() const {
    if (meanwhile) meanwhile();
  }

  Document& document_;
};

class FilesTest : public testing::Test, public FakeServices {
 protected:
  FilesTest() { host.browser = &browser; }

  /// An I-Melody file with these notes.
  static std::string TuneText(const std::string& notes) {
    return "NAME:Tune\r\nBEAT:120\r\nMELODY:" + notes + "\r\nEND:IMELODY\r\n";
  }

  /// Reads the list and forgets what was logged and called so far.
  void Fill() {
    browser.Refresh();
    log.lines.clear();
    host.calls.clear();
  }

  /// The same after writing the I-Melody files with these names and notes.
  void FillWith(const std::map<std::string, std::string>& tunes) {
    for (const auto& [name, notes] : tunes) folder.Write(name, TuneText(notes));
    Fill();
  }

  std::string Rows() const {
    std::string rows;
    for (const FileRow& row : browser.Rows()) rows += row.Text() + " ";
    return rows;
  }

  int RowOf(std::string_view text) const {
    for (size_t i = 0; i < browser.Rows().size(); ++i) {
      if (browser.Rows()[i].Text() == text) return static_cast<int>(i);
    }
    return FileBrowser::kNoRow;
  }

  void Click(std::string_view text) { browser.Click(RowOf(text)); }

  std::string SelectedText() const {
    const int row = browser.SelectedRow();
    return row == FileBrowser::kNoRow ? "" : browser.Rows()[static_cast<size_t>(row)].Text();
  }

  /// The song in I-Melody tokens.
  std::string Tokens() const { return TokensOf(document.Elements()); }
  void Compose(ElementList elements) {
    document.Apply({.removed = document.Size(), .inserted = std::move(elements)});
  }
  void Compose(const std::string& tokens) { Compose(ElementsOf(tokens)); }
  /// The bytes of its file.
  std::string FileBytes() { return *Write(document.CurrentSong(), document.Mode(), services); }

  TempFolder folder;
  FolderStore store{folder.Path()};
  Document document;
  ReadRecord record;
  FileOperations operations;
  FakeFilesHost host{document};
  /// Keeps nothing until it is started.
  std::optional<Recovery> recovery{std::in_place, document, store, folder / "state", log};
  TempFolder keptFolder;
  FolderKeeper keeper{store, keptFolder.Path()};
  KeptFiles kept{store, keeper};
  RecentFiles recent;
  FileParts parts{document, record, store, operations, *recovery, kept, recent, host, services};
  FileBrowser browser{parts};
  SaveCommands save{parts, browser};
};

}  // namespace trillomat
