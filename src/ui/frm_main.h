// The main window. It owns the composer, the player and the play controls, shows their state, and hands
// them what the user does. See docs/reentrancy.md for what may run inside what.
#pragma once

#include <QMainWindow>
#include <filesystem>

#include "composer/composer.h"
#include "playback/play_controls.h"
#include "settings/settings.h"
#include "ui/all_notes_box.h"
#include "ui/files_box.h"
#include "ui/insert_box.h"
#include "ui/main_menu.h"
#include "ui/melody_box.h"
#include "ui/note_entry_box.h"
#include "ui/option_box.h"
#include "ui/phone_display.h"
#include "ui/recovery_keeper.h"
#include "ui/song_info_box.h"

namespace trillomat {

/// What the main window reaches the rest of the program through.
struct MainSeams {
  Workspace& workspace;
  const Clock& clock;
  SoundDevice& sound;
  SettingsStore& settings;
  FileStore& files;
  Questions& questions;
  std::filesystem::path stateFolder = {};  ///< where the recovery file is kept; empty for nowhere
};

class frmMain final : public QMainWindow, private ComposerView, private PlayerView {
  Q_OBJECT

 public:
  explicit frmMain(const MainSeams& seams);

  /// The program's start: logs it and applies the settings. False when the program has to end at once.
  bool Load();
  /// Offers the melody of a run that ended abnormally, if there is one.
  void OfferRecovery() { recovery_->Offer(this, seams_.questions); }
  /// The program's end: saves the settings and logs it.
  void Unload();

  /// Opens a melody file as a click in the file list would; its mode follows its extension, the browse
  /// folder its folder. With "AutoPlay" on it is played to its end, unless `mayPlay` is false.
  void OpenFile(const std::filesystem::path& file, bool mayPlay = true);

 signals:
  /// The window was closed: the program is to end.
  void Closed();
  /// A file was dropped onto the window.
  void Dropped(const QString& file);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void LayOut();
  void Connect();
  void GiveFocusBack();
  void ApplySettings(const Settings& settings);
  Settings CurrentSettings() const;

  // ComposerView
  void ShowMelody(const MelodyViewText& text) override;
  void ShowComposer() override;
  void UpdateListFiles() override;
  // PlayerView
  void ShowFrequency(std::string_view text) override;
  void ShowPicture(int picture) override;
  void EnableTimer(int timer) override;
  void DisableTimer(int timer) override;

  MainSeams seams_;
  Workspace& ws_;
  PlaySettings playSettings_;
  Player player_;
  Composer composer_;
  PlayControls play_;

  MainMenu* menu_;
  NoteEntryBox* noteEntry_;
  OptionBox* durations_;
  OptionBox* extras_;
  AllNotesBox* allNotes_;
  InsertBox* insert_;
  MelodyBox* melody_;
  SongInfoBox* songInfo_;
  PhoneDisplay* phone_;
  FilesBox* files_;
  RecoveryKeeper* recovery_;
};

}  // namespace trillomat
