// The file browser and the save commands over a real temporary folder that is drive C:, and a window
// that remembers what it was told and answers as the test says.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "browser/file_browser.h"
#include "browser/save_commands.h"
#include "support/composer_fixture.h"
#include "support/folder_store.h"
#include "support/temp_folder.h"

namespace trillomat {

class FakeWindow : public ComposerView, public BrowserView, public PlayerView {
 public:
  FileBrowser* browser = nullptr;
  std::vector<std::string> calls;
  std::optional<std::string> newName;             ///< what frmRename answers
  std::optional<std::filesystem::path> savePath;  ///< what the save dialog answers
  std::optional<SaveDialog> dialog;               ///< what it was opened with
  bool yes = true;                                ///< what the Yes/No box answers
  std::function<void()> onMenu;                   ///< while mnuRight is open

  void ShowMelody(const MelodyViewText& /*text*/) override {}
  void ShowComposer() override {}
  void UpdateListFiles() override { browser->UpdateListFiles(); }
  void ShowFiles() override {}
  void ShowSelectedFile() override {}
  void PopUpFileMenu() override {
    calls.emplace_back("menu");
    if (onMenu) onMenu();
  }
  std::optional<std::string> AskNewName(std::string_view name) override {
    calls.push_back("rename " + std::string(name));
    return newName;
  }
  void SetSaveCaption(std::string_view caption) override { calls.emplace_back(caption); }
  void SetSaveAsCaption(std::string_view caption) override { calls.emplace_back(caption); }
  std::optional<std::filesystem::path> AskSavePath(const SaveDialog& opened) override {
    dialog = opened;
    return savePath;
  }
  bool AskYesNo(std::string_view title, std::string_view question) override {
    calls.push_back(std::string(title) + "|" + std::string(question));
    return yes;
  }
  void ShowFrequency(std::string_view /*text*/) override {}
  void ShowPicture(int /*picture*/) override {}
  void EnableTimer(int timer) override { calls.push_back("timer on " + std::to_string(timer)); }
  void DisableTimer(int timer) override { calls.push_back("timer off " + std::to_string(timer)); }
};

class BrowserTest : public testing::Test, public FakeWorkspace {
 protected:
  BrowserTest() {
    window.browser = &browser;
    player.outputType = OutputType::Beep;
    browser.sBrowseFolder = "c:\\";
  }

  /// Reads the list and forgets what was logged and called so far.
  void Fill() {
    browser.UpdateListFiles();
    log.lines.clear();
    window.calls.clear();
  }

  /// The same after writing the I-Melody files with these names and notes.
  void FillWith(const std::map<std::string, std::string>& tunes) {
    for (const auto& [name, notes] : tunes) folder.Write(name, TuneText(notes));
    Fill();
  }

  /// The log without what the I-Melody reader says of every file's first line.
  std::vector<std::string> Logged() const {
    std::vector<std::string> lines = log.lines;
    std::erase(lines, "1: Found an other tag - unknown-->BEGIN");
    return lines;
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

  std::string SelectedText() const {
    const int row = browser.SelectedRow();
    return row == FileBrowser::kNoRow ? "" : browser.Rows()[static_cast<size_t>(row)].Text();
  }

  /// The composed melody in I-Melody tokens.
  std::string Tokens() { return TokensOf(ws.melody.Elements()); }
  void Compose(const std::string& token) { ws.melody.Assign(NotesOf(token)); }

  TempFolder folder;
  FolderStore store{folder.Path()};
  FakeWindow window;
  FakeSound sound;
  Player player{ws, clock, sound, window};
  PlaySettings settings{.bAutoPlay = false, .bPlayComposing = false, .bPlayMoving = false};
  Composer composer{ws, player, settings, window};
  PlayControls controls{ws, player, settings, composer};
  MelodyOpener opener{ws, composer, controls, settings};
  FileBrowser browser{ws, store, player, opener, window, window};
  SaveCommands save{ws, store, browser, window};
};

}  // namespace trillomat
