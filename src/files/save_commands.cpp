#include "files/save_commands.h"

#include <array>
#include <utility>

#include "core/ascii.h"
#include "core/code_page.h"
#include "files/path_text.h"
#include "files/recent_files.h"
#include "files/recovery.h"
#include "files/refusal_text.h"
#include "files/save_dialog.h"
#include "formats/rtttl_text.h"

namespace trillomat {

using Outcome = SaveResult::Outcome;

bool SaveCommands::NothingToSave() {
  if (!parts_.document.IsEmpty()) return false;
  parts_.services.log.WriteLog("Nothing to save", 2);
  return true;
}

void SaveCommands::Save() {
  const auto operation = parts_.operations.Begin();
  if (!operation || NothingToSave()) return;
  parts_.host.SetSaveCaption("Wait");
  parts_.services.log.WriteLog("Save file started", 1);
  WriteSelected();
  parts_.host.SetSaveCaption("Save");
}

void SaveCommands::WriteSelected() {
  Log& log = parts_.services.log;
  const auto removed = [&log] { log.WriteLog("Removed file", 1); };
  const TargetFile file = browser_.SelectedFile();
  const SaveResult result = Write(file, true, removed);
  Say(file, result);
  switch (result.outcome) {
    case Outcome::Saved: return log.WriteLog("Saved the file", 1);
    case Outcome::NotWritten: return log.WriteLog("Failed to save the file", 2);
    default: return log.WriteLog("Could not remove the old file", 1);
  }
}

SaveResult SaveCommands::Write(const TargetFile& file, bool exists, const std::function<void()>& onRemoved) {
  ProgressPump pump = WritingPump(file.path, parts_);
  const SaveParts parts{parts_.store, parts_.document, parts_.kept, parts_.services.With(pump)};
  SaveResult result = exists ? SaveOver(file, parts, onRemoved) : SaveNew(file, parts);
  parts_.host.ShowProgress({});
  return result;
}

void SaveCommands::SaveAs() {
  const auto operation = parts_.operations.Begin();
  if (!operation || NothingToSave()) return;
  parts_.host.SetSaveAsCaption("Wait");
  parts_.services.log.WriteLog("Save As started", 1);
  AskAndWrite();
  parts_.host.SetSaveAsCaption("Save As");
}

void SaveCommands::AskAndWrite() {
  Log& log = parts_.services.log;
  const auto file = AskFile();
  if (!file) return log.WriteLog("Abort Save As file", 1);
  // In a folder that the list does not show, nobody else has looked for what a killed program left.
  parts_.store.Sweep(file->parent_path());
  const bool exists = parts_.store.Exists(*file);
  if (exists && !AskToReplace(parts_.host)) return;
  const TargetFile target{*file, LogText(*file, parts_.store)};
  const SaveResult result = Write(target, exists, [] {});
  Say(target, result);
  switch (result.outcome) {
    case Outcome::Saved: log.WriteLog("File Saved", 1); return browser_.RefreshAndSelectSaved();
    case Outcome::NotWritten: log.WriteLog("Failed to save file", 2); return browser_.Refresh();
    default: return log.WriteLog("Failed to remove file", 1);
  }
}

void SaveCommands::SaveOrSaveAs() { browser_.CanSave() ? Save() : SaveAs(); }

std::optional<std::filesystem::path> SaveCommands::AskFile() {
  const ModeLimits& limits = LimitsOf(parts_.document.Mode());
  const std::array formats{std::pair(limits.caption, limits.extension)};
  const auto answer = parts_.host.AskSavePath({parts_.store.NativePath(browser_.OwnFolder()), "SaveMelody",
                                               BuildDialogFilter(formats), std::string(limits.extension)});
  if (!answer) return std::nullopt;
  return ChosenFile(*answer, limits.extension);
}

void SaveCommands::Say(const TargetFile& file, const SaveResult& result) {
  if (result.outcome != Outcome::Saved) return parts_.host.Say({"Not saved: " + ToUtf8(result.why)});
  parts_.recent.Add(file.path);
  parts_.recovery.Tick();  // the song is safe now
  const std::string replaced = "Replaced " + Utf8OfPath(file.path.filename());
  FileMessage message;
  if (!result.replaced.copy.empty()) message = {replaced, FileMessage::Offer::Restore};
  if (!result.replaced.fault.empty()) message.text = replaced + ", but " + ToUtf8(result.replaced.fault);
  message.text = JoinedSentences(std::move(message.text), NameWarning());
  parts_.host.Say(message);
}

// The writer writes every name, but not every one comes back.
std::string SaveCommands::NameWarning() const {
  if (parts_.document.Mode() != FormatMode::Rtttl) return {};
  std::string warning = ToUtf8(RtttlNameWarning(parts_.document.Info(), RtttlSpelling::Classic));
  if (!warning.empty()) warning.front() = ToUpper(warning.front());
  return warning;
}

}  // namespace trillomat
