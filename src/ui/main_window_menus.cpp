// The items of the main window's menus, and what they do.
#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <chrono>

#include "files/path_text.h"
#include "ui/about_window.h"
#include "ui/keys_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/window_size.h"

namespace trillomat {
namespace {

// "greensleeves.imy, 21/11/2026 10:15, 42 elements, 0:31"
QString KeptSongText(const KeptSong& song) {
  const auto time = std::chrono::duration_cast<std::chrono::seconds>(song.time.time_since_epoch()).count();
  const QString when = QLocale().toString(QDateTime::fromSecsSinceEpoch(time), QLocale::ShortFormat);
  return QStringLiteral("%1, %2, %L3 elements, %4")
      .arg(ShownName(song.name), when)
      .arg(song.elements)
      .arg(MinutesText(song.milliseconds));
}

}  // namespace

void MainWindow::FillMenus() {
  std::vector<MenuItem> items = FileItems();
  for (const auto& more : {EditItems(), ViewItems(), PlayItems(), HelpItems()}) {
    items.insert(items.end(), more.begin(), more.end());
  }
  menu_->Fill(std::move(items));
  menu_->AddList({.name = "mnuFileRecent",
                  .caption = "Open &Recent",
                  .before = "mnuFileSave",
                  .items = [this] { return RecentTexts(); },
                  .run = [this](int index) { OpenRecent(index); }});
  menu_->AddList({.name = "mnuFileRecover",
                  .caption = "Reco&ver",
                  .before = "mnuFileCleanUp",
                  .items = [this] { return RecoverTexts(); },
                  .run = [this](int index) { Recover(index); }});
  connect(menu_, &MainMenu::AboutRequested, this, &MainWindow::ShowAbout);
}

QStringList MainWindow::RecentTexts() const {
  QStringList texts;
  for (const auto& file : files_->Recent().Files()) texts << ShownName(Utf8OfPath(file));
  return texts;
}

QStringList MainWindow::RecoverTexts() const {
  QStringList texts;
  for (const KeptSong& song : files_->KeptSongs()) texts << KeptSongText(song);
  return texts;
}

// The lists are asked again, because they may have changed while the menu was open.
void MainWindow::OpenRecent(int index) {
  const auto& files = files_->Recent().Files();
  if (static_cast<size_t>(index) < files.size())
    files_->Browser().OpenRecent(std::filesystem::path(files[static_cast<size_t>(index)]));
}

void MainWindow::Recover(int index) {
  const std::vector<KeptSong> songs = files_->KeptSongs();
  if (static_cast<size_t>(index) < songs.size())
    files_->Browser().Recover(songs[static_cast<size_t>(index)].file);
}

std::vector<MenuItem> MainWindow::FileItems() {
  constexpr auto kFile = MenuPlace::File;
  const auto may = [this] { return composer_.MayEdit(); };
  const auto filled = [this] { return composer_.MayEdit() && !parts_.document.IsEmpty(); };
  return {{kFile, "mnuFileNew", "&New", [this] { files_->New(); }, may},
          {kFile, "mnuFileOpen", "&Open...", [this] { files_->Open(); }, may},
          {kFile, nullptr},
          {kFile, "mnuFileSave", "&Save", [this] { files_->SaveOrSaveAs(); }, may},
          {kFile, "mnuFileSaveAs", "Save &As...", [this] { files_->SaveAs(); }, may},
          {kFile, nullptr},
          {kFile, "mnuFileImport", "&Import...", [this] { files_->Import(); }, may},
          {kFile, "mnuFileExport", "&Export...", [this] { files_->Export(); }, filled},
          {kFile, "mnuFileExportSound", "Export soun&d...", [this] { files_->ExportSound(); }, filled},
          {kFile, nullptr},
          {kFile, "mnuFileCleanUp", "&Clean up settings", [this] { CleanUp(); }, may},
          {kFile, nullptr},
          {kFile, "mnuFileExit", "E&xit", [this] { close(); }, may}};
}

std::vector<MenuItem> MainWindow::EditItems() {
  constexpr auto kEdit = MenuPlace::Edit;
  const auto may = [this] { return composer_.MayEdit(); };
  const auto filled = [this] { return composer_.MayEdit() && !parts_.document.IsEmpty(); };
  const auto selected = [this] { return composer_.MayEdit() && edit_.HasSelection(); };
  const auto undo = [this] { return composer_.MayEdit() && composer_.Steps().CanUndo(); };
  const auto redo = [this] { return composer_.MayEdit() && composer_.Steps().CanRedo(); };
  return {{kEdit, "mnuEditUndo", "&Undo", [this] { composer_.Undo(); }, undo},
          {kEdit, "mnuEditRedo", "&Redo", [this] { composer_.Redo(); }, redo},
          {kEdit, nullptr},
          {kEdit, "mnuEditCut", "Cu&t", [this] { edit_.Cut(); }, selected},
          {kEdit, "mnuEditCopy", "&Copy", [this] { edit_.Copy(); }, [this] { return edit_.HasSelection(); }},
          {kEdit, "mnuEditPaste", "&Paste", [this] { edit_.Paste(); }, may},
          {kEdit, "mnuEditDuplicate", "D&uplicate", [this] { composer_.Duplicate(); }, filled},
          {kEdit, "mnuEditDelete", "&Delete", [this] { composer_.EraseSelected("erasing"); }, selected},
          {kEdit, nullptr},
          {kEdit, "mnuEditSelectAll", "Select &all", [this] { composer_.SelectAll(); }, filled},
          {kEdit, "mnuEditNextProblem", "&Next problem", [this] { edit_.GoToNextProblem(); }, filled},
          {kEdit, nullptr},
          {kEdit, "mnuEditSemitoneUp", "Transpose up by a &semitone", [this] { composer_.MoveSemitones(1); },
           filled},
          {kEdit, "mnuEditSemitoneDown", "Transpose do&wn by a semitone",
           [this] { composer_.MoveSemitones(-1); }, filled}};
}

std::vector<MenuItem> MainWindow::ViewItems() {
  constexpr auto kView = MenuPlace::View;
  return {{.menu = kView,
           .name = "mnuViewStrip",
           .caption = "&Note strip",
           .run = [this] { melody_->Strip().setVisible(melody_->Strip().isHidden()); },
           .isChecked = [this] { return !melody_->Strip().isHidden(); }},
          {kView, nullptr},
          {kView, "mnuViewZoomIn", "Zoom &in", [this] { melody_->Strip().ZoomIn(); }},
          {kView, "mnuViewZoomOut", "Zoom &out", [this] { melody_->Strip().ZoomOut(); }},
          {kView, "mnuViewZoomReset", "&Actual size", [this] { melody_->Strip().ZoomReset(); }}};
}

std::vector<MenuItem> MainWindow::PlayItems() {
  constexpr auto kPlay = MenuPlace::Play;
  const auto stopped = [this] { return composer_.MayEdit() && !parts_.document.IsEmpty(); };
  const auto selected = [this] { return composer_.MayEdit() && edit_.HasSelection(); };
  const auto filled = [this] { return !parts_.document.IsEmpty(); };
  return {{kPlay, "mnuPlayOrStop", "&Play or stop", [this] { melody_->PlayOrStop(); }, filled},
          {kPlay, "mnuPlayFromCursor", "Play from the &cursor", [this] { play_.PlayFromCursor(); }, stopped},
          {kPlay, "mnuPlaySelection", "Play the &selection", [this] { play_.PlaySelection(); }, selected},
          {kPlay, nullptr},
          {.menu = kPlay,
           .name = "mnuPlayLoop",
           .caption = "&Loop",
           .run = [this] { play_.SetLoop(!play_.Loops()); },
           .isChecked = [this] { return play_.Loops(); }}};
}

std::vector<MenuItem> MainWindow::HelpItems() {
  constexpr auto kHelp = MenuPlace::Help;
  const auto may = [this] { return composer_.MayEdit(); };
  return {{kHelp, "mnuHelpManual", "&Manual", [this] { ShowManual(); }},
          {kHelp, "mnuHelpKeys", "&Keys", [this] { ShowKeys(); }},
          {kHelp, "mnuHelpSamples", "&Sample melodies", [this] { ShowSamples(); }, may},
          {kHelp, nullptr},
          {kHelp, "mnuHelpAbout", "&About Trillomat", [this] { ShowAbout(); }, may}};
}

void MainWindow::ShowManual() {
  const auto manual = parts_.installed("manual/manual.html");
  if (manual.empty()) return ShowMessage({"The manual is not installed with the program"});
  if (parts_.questions.ShowPage(manual)) return;
  ShowMessage({"Nothing on this computer shows the manual: " + Utf8OfPath(manual)});
}

void MainWindow::ShowSamples() {
  const auto samples = parts_.installed("samples");
  if (samples.empty()) return ShowMessage({"No sample melodies are installed with the program"});
  files_->Browser().ShowSamples(samples);
}

void MainWindow::ShowAbout() { AboutWindow(QCoreApplication::applicationVersion(), this).exec(); }

void MainWindow::ShowKeys() {
  if (keys_ == nullptr) keys_ = new KeysWindow(this);
  keys_->show();
  keys_->raise();
  keys_->activateWindow();
}

void MainWindow::CleanUp() {
  CleanUpSettings(settings_, parts_.services.log);
  ForgetSize(settings_);
  Save(settings_, parts_.services.log);
}

}  // namespace trillomat
