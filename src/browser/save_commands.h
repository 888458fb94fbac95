// The commands "Save" and "Save As".
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "browser/browser_view.h"
#include "browser/file_browser.h"
#include "browser/file_store.h"
#include "core/workspace.h"

namespace trillomat {

/// The filter text of the save dialog from pairs of a description and an extension:
/// "Melody (*.mel" ")" NUL "*.mel" for each, NUL between them and the text " + Chr$(0)" after the last.
std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats);

class SaveCommands {
 public:
  SaveCommands(Workspace& workspace, FileStore& store, FileBrowser& browser, BrowserView& view)
      : ws_(workspace), store_(store), browser_(browser), view_(view) {}

  /// Writes the melody over the selected file. A click while a save runs does nothing, here and below.
  void cmdSave_Click();
  /// Asks for a name and writes the melody there.
  void cmdSaveAs_Click();

 private:
  void Save();
  void SaveAs();
  void SaveAsFile(const std::filesystem::path& file);
  std::filesystem::path WithExtension(const std::filesystem::path& chosen) const;

  Workspace& ws_;
  FileStore& store_;
  FileBrowser& browser_;
  BrowserView& view_;
  bool saving_ = false;
};

}  // namespace trillomat
