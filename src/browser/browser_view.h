// What the file browser and the save commands need of the window. Abstract so that both run and are
// tested without one. Texts are UTF-8.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace trillomat {

/// What the save dialog opens with.
struct SaveDialog {
  std::filesystem::path folder;
  std::string fileName;   ///< proposed
  std::string filter;     ///< as BuildDialogFilter makes it
  std::string extension;  ///< of the current format, without the dot
};

class BrowserView {
 public:
  BrowserView() = default;
  BrowserView(const BrowserView&) = delete;
  BrowserView& operator=(const BrowserView&) = delete;
  virtual ~BrowserView() = default;

  /// The rows of `ListFiles`, the selected row, the browse folder or what "Save" allows changed: the window
  /// reads all of it from the FileBrowser again. Filling the widget is no click.
  virtual void ShowFiles() = 0;
  /// Only the selected row or what "Save" allows changed.
  virtual void ShowSelectedFile() = 0;
  /// Pops up `mnuRight` at the pointer.
  virtual void PopUpFileMenu() = 0;
  /// Shows `frmRename` with `name` in `txtName` and waits. The text of `txtName` after "OK", nothing after
  /// "Cancel".
  virtual std::optional<std::string> AskNewName(std::string_view name) = 0;

  /// Sets the caption of `cmdSave` and of `cmdSaveAs`.
  virtual void SetSaveCaption(std::string_view caption) = 0;
  virtual void SetSaveAsCaption(std::string_view caption) = 0;
  /// Shows the system's save dialog, which does not ask itself before a file is replaced. The path chosen
  /// as the dialog gave it, nothing when cancelled.
  virtual std::optional<std::filesystem::path> AskSavePath(const SaveDialog& dialog) = 0;
  /// Shows a Yes/No message box and waits; true for Yes.
  virtual bool AskYesNo(std::string_view title, std::string_view question) = 0;
};

}  // namespace trillomat
