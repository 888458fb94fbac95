// Deleting and renaming from the right-click menu, and opening a file that was not clicked.
#include "browser/file_browser.h"
#include "browser/flag_set.h"
#include "browser/path_text.h"

namespace trillomat {
namespace {

// Why a file cannot have this name, empty when it can: it must stay in its folder and in the list.
std::string_view NameFault(std::string_view name) {
  constexpr std::string_view kForbidden{"/\\:\0", 4};
  if (name.empty()) return "the name is empty";
  if (name == "." || name == "..") return "the name is that of a folder";
  if (name.find_first_of(kForbidden) != std::string_view::npos) return "the name holds a separator";
  return {};
}

}  // namespace

void FileBrowser::mnuDelete_Click() {
  if (Selected() != nullptr && Selected()->IsFile()) bDeleteFile(SelectedFile(), store_, ws_.log);
  UpdateListFiles();
}

void FileBrowser::mnuRename_Click() {
  const TargetFile file = SelectedFile();
  if (Selected() == nullptr || !Selected()->IsFile() || !store_.Exists(file.path)) return UpdateListFiles();
  const std::string name = Selected()->name;
  const size_t dot = name.rfind('.');
  const std::string folder = sBrowseFolder;
  const auto newName = view_.AskNewName(name.substr(0, dot));
  if (newName) {
    const std::string_view fault = NameFault(*newName);
    const std::string given = folder + *newName + name.substr(dot);
    if (fault.empty()) {
      RenameTo(file, given);
    } else {
      ws_.log.WriteLog("Could not rename the file: " + std::string(fault) + "->" + PathText(given), 1);
    }
  }
  UpdateListFiles();
}

void FileBrowser::RenameTo(const TargetFile& file, const std::string& newGiven) {
  const std::filesystem::path to = store_.NativePath(newGiven);
  if (store_.Exists(to)) {
    ws_.log.WriteLog("Could not rename the file: a file of that name exists->" + PathText(newGiven), 1);
  } else if (store_.Copy(file.path, to)) {
    bDeleteFile(file, store_, ws_.log);
  } else {
    ws_.log.WriteLog("Could not rename the file: copying failed->" + PathText(newGiven), 1);
  }
}

bool FileBrowser::OpenFile(const std::filesystem::path& file) {
  if (listBusy_) return false;
  const std::string extension = NameText(file.extension());
  const auto mode = ModeOfExtension(std::string_view(extension).substr(extension.empty() ? 0 : 1));
  if (!mode) {
    ws_.log.WriteLog("Not a melody file (imy, emy, rtx, mel)->" + PathText(file, store_), 2);
    return false;
  }
  bool opened = false;
  {
    const FlagSet busy(listBusy_);
    const auto given = store_.GivenPath(file);
    if (given && store_.Exists(file)) sBrowseFolder = given->substr(0, given->rfind('\\') + 1);
    opened = opener_.Read(file, *mode);
    UpdateListFiles();
    if (given) SelectFile(given->substr(given->rfind('\\') + 1));
    view_.ShowSelectedFile();
  }
  if (opened) opener_.PlayOrShow();
  return opened;
}

void FileBrowser::SelectFile(const std::string& name) {
  Reselect(FileRow{RowKind::File, name});
  clicked_ = Selected() != nullptr;
}

}  // namespace trillomat
