// Deleting and renaming from the right-click menu, and opening what was not clicked.
#include "files/file_browser.h"
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

// Why a file cannot have this name, empty when it can: it must stay in its folder and in the list.
std::string NameFault(std::string_view name) {
  if (name.empty()) return "the name is empty";
  if (name == "." || name == "..") return "the name is that of a folder";
  if (name.find_first_of("/\\:") != std::string_view::npos) return "the name holds a separator";
  return {};
}

std::string NoticeOf(std::string_view what, std::string_view why) {
  return why.empty() ? "" : std::string(what) + std::string(why);
}

}  // namespace

void FileBrowser::DeleteSelected() {
  const auto operation = parts_.operations.Begin();
  if (!operation) return;
  if (FileSelected()) {
    const bool gone = DeleteFile(SelectedFile(), parts_.store, parts_.services.log);
    parts_.host.Notice(gone ? "" : "Not deleted: the file is not there any more, or cannot be removed");
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
    parts_.host.Notice(NoticeOf("Not renamed: ", fault));
  }
  Refresh();
}

// Why it could not be renamed; empty where it was, or where the log says already what it was not.
std::string FileBrowser::Rename(const TargetFile& file, const std::string& newGiven) {
  const std::filesystem::path to = parts_.store.NativePath(newGiven);
  if (parts_.store.Exists(to)) return "a file of that name exists";
  if (!parts_.store.Copy(file.path, to)) return "copying failed";
  DeleteFile(file, parts_.store, parts_.services.log);
  return {};
}

bool FileBrowser::OpenFile(const std::filesystem::path& file) {
  const std::string extension = Utf8OfPath(file.extension());
  const auto mode = ModeOfExtension(std::string_view(extension).substr(extension.empty() ? 0 : 1));
  bool opened = false;
  {
    const auto operation = parts_.operations.Begin();
    if (!operation) return false;
    if (!mode) {
      const std::string shown = LogText(file, parts_.store);
      parts_.services.log.WriteLog("Not a melody file (imy, emy, rtx, mel)->" + shown, 2);
      return false;
    }
    const auto given = parts_.store.GivenPath(file);
    const bool shown = given && parts_.store.Exists(file);
    if (shown) folder_ = given->substr(0, given->rfind('\\') + 1);
    opened = opener_.Open(file, *mode);
    Refresh();
    if (shown) Select(RowOf({RowKind::File, given->substr(given->rfind('\\') + 1)}), true);
    parts_.host.ShowSelectedFile();
  }
  if (opened) parts_.host.PlayOrShow();
  return opened;
}

void FileBrowser::TakeImported(ReadResult&& read) {
  opener_.TakeImported(std::move(read));
  Select(kNoRow, false);
  parts_.host.ShowSelectedFile();
}

void FileBrowser::RecoverLast() {
  const auto operation = parts_.operations.Begin();
  if (!operation || !opener_.TakeRecovered()) return;
  Select(kNoRow, false);
  parts_.host.ShowSelectedFile();
}

}  // namespace trillomat
