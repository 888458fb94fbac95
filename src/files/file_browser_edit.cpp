// The file browser: deleting and renaming from the right-click menu, and putting back what was replaced or
// deleted.
#include "core/code_page.h"
#include "files/file_browser.h"
#include "files/kept_files.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

// The UTF-8 text with a blank for each control character and line break.
std::string InOneLine(std::string_view text) {
  std::string line;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const std::string_view rest = text.substr(i + 1, 2);
    const bool latinControl = byte == 0xC2 && !rest.empty() && static_cast<unsigned char>(rest[0]) < 0xA0;
    const bool separator = byte == 0xE2 && (rest == "\x80\xA8" || rest == "\x80\xA9");
    line += byte < ' ' || byte == 0x7F || latinControl || separator ? ' ' : text[i];
    if (latinControl) i += 1;
    if (separator) i += 2;
  }
  return line;
}

// Why a file cannot be given this name; empty when it can. It has to stay in its folder and in the list.
std::string NameFault(std::string_view name) {
  if (name.empty()) return "the name is empty";
  if (name == "." || name == "..") return "the name is that of a folder";
  if (name.find_first_of("/\\:") != std::string_view::npos) return "the name holds a separator";
  return {};
}

}  // namespace

void FileBrowser::DeleteSelected() {
  const auto operation = parts_.operations.Begin();
  if (!operation) return;
  if (FileSelected()) parts_.host.Say(Delete(SelectedFile()));
  Refresh();
}

// Returns what is to be said. That and the log are the same whether the file is kept or just deleted.
FileMessage FileBrowser::Delete(const TargetFile& file) {
  const FileMessage notDeleted{"Not deleted: the file is not there any more, or cannot be removed"};
  Log& log = parts_.services.log;
  if (!parts_.kept.IsWorthKeeping(file.path)) {
    return DeleteFile(file, parts_.store, log) ? FileMessage{} : notDeleted;
  }
  const auto removal = parts_.kept.TakeAway(file.path);
  if (removal.removed) {
    return {"Deleted " + Utf8OfPath(file.path.filename()), FileMessage::Offer::Restore};
  }
  if (!removal.fault.empty()) log.WriteLog("Could not keep the file->" + file.shown, 1);
  log.WriteLog("Failed to remove the file in bDeleteFile->" + file.shown, 1);
  return removal.fault.empty() ? notDeleted : FileMessage{"Not deleted: " + ToUtf8(removal.fault)};
}

// If the song's own file is restored, it holds other bytes now: so the song counts as changed.
void FileBrowser::Restore() {
  const auto operation = parts_.operations.Begin();
  if (!operation || !parts_.host.MayEdit()) return;
  const auto restored = parts_.kept.Restore();
  const std::string name = Utf8OfPath(restored.place.filename());
  if (!restored.fault.empty()) {
    parts_.services.log.WriteLog("Could not restore the file->" + LogText(restored.place, parts_.store), 1);
    parts_.host.Say({"Not restored: " + ToUtf8(restored.fault)});
  } else {
    std::error_code gone;
    const std::filesystem::path own = parts_.document.File();
    if (!own.empty() && std::filesystem::equivalent(own, restored.place, gone)) {
      parts_.document.SetFile(own, true);
    }
    using Offer = FileMessage::Offer;
    parts_.host.Say({"Restored " + name, parts_.kept.CanRestore() ? Offer::Restore : Offer::None});
  }
  Refresh();
}

void FileBrowser::RenameSelected() {
  const auto operation = parts_.operations.Begin();
  if (!operation) return;
  const TargetFile file = SelectedFile();
  if (!FileSelected() || !parts_.store.Exists(file.path)) return Refresh();
  const std::string name = Selected()->name;
  const size_t dot = name.rfind('.');
  const auto answer = parts_.host.AskNewName(name.substr(0, dot));
  if (answer) {
    const std::string newName = InOneLine(*answer);
    const std::string given = folder_ + newName + name.substr(dot);
    std::string fault = NameFault(newName);
    if (fault.empty()) fault = Rename(file, given);
    if (!fault.empty()) {
      parts_.services.log.WriteLog("Could not rename the file: " + fault + "->" + LogText(given), 1);
    }
    parts_.host.Say({fault.empty() ? "" : "Not renamed: " + fault});
  }
  Refresh();
}

// Why the file could not be renamed. Empty when it was, and also when only the old name could not be deleted,
// which DeleteFile has logged.
std::string FileBrowser::Rename(const TargetFile& file, const std::string& newGiven) {
  const std::filesystem::path to = parts_.store.NativePath(newGiven);
  if (parts_.store.Exists(to)) return "a file of that name exists";
  if (!parts_.store.Copy(file.path, to)) return "copying failed";
  DeleteFile(file, parts_.store, parts_.services.log);
  return {};
}

}  // namespace trillomat
