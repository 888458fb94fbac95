#include "browser/save_commands.h"

#include <algorithm>
#include <array>

#include "browser/flag_set.h"
#include "browser/path_text.h"
#include "browser/safe_save.h"
#include "core/ascii.h"

namespace trillomat {

std::string BuildDialogFilter(std::span<const std::pair<std::string_view, std::string_view>> formats) {
  std::string filter;
  for (const auto& [description, extension] : formats) {
    filter.append(description).append(" (*.").append(extension).append(")").push_back('\0');
    filter.append("*.").append(extension).push_back('\0');
  }
  if (!filter.empty()) filter.pop_back();
  return filter + " + Chr$(0)";
}

std::optional<std::filesystem::path> ChosenFile(const std::filesystem::path& answer,
                                                std::string_view extension) {
  std::string name = NameText(answer.filename());
  name.resize(std::min(name.find('\0'), name.size()));
  name.resize(name.find_last_not_of(' ') + 1);
  if (name.empty() || name == "." || name == "..") return std::nullopt;
  const std::string ending = "." + std::string(extension);
  if (!Contains(Lowered(name), ending)) name += ending;
  return answer.parent_path() / NamePath(name);
}

bool SaveCommands::NothingToSave() {
  if (ws_.melody.IsEmpty()) ws_.log.WriteLog("Nothing to save", 2);
  return ws_.melody.IsEmpty();
}

void SaveCommands::cmdSave_Click() {
  if (saving_) return;
  const FlagSet saving(saving_);
  if (NothingToSave()) return;
  view_.SetSaveCaption("Wait");
  ws_.log.WriteLog("Save file started", 1);
  Save();
  view_.SetSaveCaption("Save");
}

void SaveCommands::Save() {
  const auto removed = [this] { ws_.log.WriteLog("Removed file", 1); };
  switch (SaveOver(browser_.SelectedFile(), store_, ws_, removed)) {
    case SaveOutcome::Saved: return ws_.log.WriteLog("Saved the file", 1);
    case SaveOutcome::NotWritten: return ws_.log.WriteLog("Failed to save the file", 2);
    default: return ws_.log.WriteLog("Could not remove the old file", 1);
  }
}

void SaveCommands::cmdSaveAs_Click() {
  if (saving_) return;
  const FlagSet saving(saving_);
  if (NothingToSave()) return;
  view_.SetSaveAsCaption("Wait");
  ws_.log.WriteLog("Save As started", 1);
  SaveAs();
  view_.SetSaveAsCaption("Save As");
}

void SaveCommands::SaveAs() {
  const auto file = AskFile();
  if (!file) return ws_.log.WriteLog("Abort Save As file", 1);
  // In a folder that the list does not show, nobody else has looked for an interrupted save.
  PutBackLeftovers(file->parent_path(), store_, ws_.log);
  const bool exists = store_.Exists(*file);
  if (exists && !view_.AskYesNo("File Exist", "File Already exist! Remove?")) return;
  const TargetFile target{*file, PathText(*file, store_)};
  const SaveOutcome outcome = exists ? SaveOver(target, store_, ws_, [] {}) : SaveNew(target, store_, ws_);
  switch (outcome) {
    case SaveOutcome::Saved: ws_.log.WriteLog("File Saved", 1); break;
    case SaveOutcome::NotWritten: ws_.log.WriteLog("Failed to save file", 2); break;
    default: return ws_.log.WriteLog("Failed to remove file", 1);
  }
  browser_.UpdateListFiles();
}

std::optional<std::filesystem::path> SaveCommands::AskFile() {
  const ModeLimits& limits = LimitsOf(ws_.iNoteMode);
  const std::array formats{std::pair(limits.caption, limits.extension)};
  const auto answer = view_.AskSavePath({store_.NativePath(browser_.sBrowseFolder), "SaveMelody",
                                         BuildDialogFilter(formats), std::string(limits.extension)});
  if (!answer) return std::nullopt;
  return ChosenFile(*answer, limits.extension);
}

}  // namespace trillomat
