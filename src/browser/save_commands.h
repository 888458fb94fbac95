// The commands "Save" and "Save As".
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "browser/browser_view.h"
#include "browser/file_browser.h"
#include "browser/file_store.h"
#include "core/workspace.h"

namespace trillomat {

/// The filter text of the save dialog from pairs of a description and an extension. Each gives
/// "DESCRIPTION (*.EXT)" and "*.EXT", every part ended by NUL, the last by the text " + Chr$(0)".
std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats);

/// The file that a save dialog's answer means: its name without blanks at the end and cut before a NUL,
/// with "." and `extension` appended unless it contains them. Nothing for an answer without a name.
std::optional<std::filesystem::path> ChosenFile(const std::filesystem::path& answer,
                                                std::string_view extension);

class SaveCommands {
 public:
  SaveCommands(Workspace& workspace, FileStore& store, FileBrowser& browser, BrowserView& view)
      : ws_(workspace), store_(store), browser_(browser), view_(view) {}

  /// Writes the melody over the selected file. A click while a save runs does nothing, here and below.
  void cmdSave_Click();
  /// Asks for a name and writes the melody there.
  void cmdSaveAs_Click();
  bool IsSaving() const { return saving_; }

 private:
  bool NothingToSave();
  void Save();
  void SaveAs();
  std::optional<std::filesystem::path> AskFile();

  Workspace& ws_;
  FileStore& store_;
  FileBrowser& browser_;
  BrowserView& view_;
  bool saving_ = false;
};

}  // namespace trillomat
