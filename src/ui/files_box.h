// "Files": the drive list, the file list, and the buttons that save, import and export. At any time one
// file operation runs at most; a click that would start a second one does nothing.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "browser/file_browser.h"
#include "browser/save_commands.h"
#include "ui/controls.h"
#include "ui/file_list.h"
#include "ui/questions.h"

namespace trillomat {

struct FilesBoxParts {
  Workspace& workspace;
  FileStore& files;
  Questions& questions;
  const Player& player;
  Composer& composer;
  PlayControls& play;
  const PlaySettings& playSettings;
  PlayerView& timers;
};

class FilesBox : public QGroupBox, private BrowserView {
  Q_OBJECT

 public:
  FilesBox(const FilesBoxParts& parts, QWidget* parent);

  FileBrowser& Browser() { return browser_; }
  const FileBrowser& Browser() const { return browser_; }
  MelodyOpener& Opener() { return opener_; }
  /// Opens a file that was named on the command line or dropped.
  void OpenFile(const std::filesystem::path& file);

  void ShowState();
  /// True while a file is read, written, imported or exported: a second such operation has to wait.
  bool FileOperationRuns() const;
  void StartClickTimer() { clickTimer_.start(TimerInterval(kFileClickTimer)); }
  void StopClickTimer() { clickTimer_.stop(); }

 private:
  void LayOut();
  QLayout* NewButtons();
  void AddMenuItems();
  void Connect();
  QPushButton* NewCommand(const char* objectName, const ControlText& text, void (FilesBox::*command)());
  void Open(const std::function<void()>& open);
  void ShowRefusal(const QString& what);
  void cmdSave_Click();
  void cmdSaveAs_Click();
  void cmdImport_Click();
  void cmdExport_Click();

  // BrowserView
  void ShowFiles() override;
  void ShowSelectedFile() override;
  void PopUpFileMenu() override;
  std::optional<std::string> AskNewName(std::string_view name) override;
  void SetSaveCaption(std::string_view caption) override;
  void SetSaveAsCaption(std::string_view caption) override;
  std::optional<std::filesystem::path> AskSavePath(const SaveDialog& dialog) override;
  bool AskYesNo(std::string_view title, std::string_view question) override;

  Workspace& ws_;
  Questions& questions_;
  Composer& composer_;
  MelodyOpener opener_;
  FileBrowser browser_;
  SaveCommands save_;
  QTimer clickTimer_;
  bool exchanging_ = false;  ///< the import or the export window is open

  QComboBox* cboDrives_;
  QLabel* lblFolder_;
  QLabel* lblNotice_;  ///< why the last file or text was not taken; hidden when it was
  FileList* listFiles_;
  QMenu* mnuRight_;
  QPushButton* cmdSave_;
  QPushButton* cmdSaveAs_;
  QPushButton* cmdImport_;
  QPushButton* cmdExport_;
};

}  // namespace trillomat
