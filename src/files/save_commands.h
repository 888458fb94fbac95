// The commands "Save" and "Save As".
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "files/file_browser.h"
#include "files/files_host.h"
#include "files/save.h"

namespace trillomat {

/// While another file operation runs, none of the commands does anything.
class SaveCommands {
 public:
  SaveCommands(const FileParts& parts, FileBrowser& browser) : parts_(parts), browser_(browser) {}

  /// Writes the song over the selected file.
  void Save();
  /// Asks for a name and writes the song there; the list then selects the new file.
  void SaveAs();
  /// Ctrl+S: Save where a file is selected that it may write over, Save As otherwise.
  void SaveOrSaveAs();

 private:
  bool NothingToSave();
  void WriteSelected();
  void AskAndWrite();
  std::optional<std::filesystem::path> AskFile();
  SaveResult Write(const TargetFile& file, bool exists, const std::function<void()>& onRemoved);
  void Say(const TargetFile& file, const SaveResult& result);
  std::string NameWarning() const;

  FileParts parts_;
  FileBrowser& browser_;
};

}  // namespace trillomat
