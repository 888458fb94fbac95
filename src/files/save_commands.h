// The commands "Save" and "Save As".
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "core/progress_pump.h"
#include "files/file_browser.h"
#include "files/files_host.h"
#include "files/save.h"

namespace trillomat {

/// The filter text of the save dialog from pairs of a description and an extension. Each gives
/// "DESCRIPTION (*.EXT)" and "*.EXT", every part ended by NUL, the last by the text " + Chr$(0)".
std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats);

/// The file that a save dialog's answer means: its name without blanks at the end and cut before a NUL,
/// with "." and `extension` appended unless it contains them. Nothing for an answer without a name.
std::optional<std::filesystem::path> ChosenFile(const std::filesystem::path& answer,
                                                std::string_view extension);

/// Shows how far the writing of `file` has come; that is to be cleared at its end.
ProgressPump WritingPump(const std::filesystem::path& file, const FileParts& parts);

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
