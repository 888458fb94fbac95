// The main window. It shows the document and what the composer, the player and the file commands say, and
// hands them what the user does.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <string_view>

#include "composer/composer.h"
#include "settings/settings.h"
#include "ui/all_notes_box.h"
#include "ui/centre_area.h"
#include "ui/edit_commands.h"
#include "ui/files_box.h"
#include "ui/insert_box.h"
#include "ui/keys_window.h"
#include "ui/main_menu.h"
#include "ui/melody_box.h"
#include "ui/message_bar.h"
#include "ui/note_entry_box.h"
#include "ui/option_box.h"
#include "ui/phone_display.h"
#include "ui/song_info_box.h"
#include "ui/status_line.h"

namespace trillomat {

/// What the main window works on and reaches the rest of the program through; all of it outlives it.
struct WindowParts {
  Document& document;
  ReadRecord& record;
  Services services;
  const Clock& clock;
  SoundDevice& sound;
  SettingsStore& settings;
  FileStore& files;
  FileKeeper& keeper;  ///< of files that are replaced or deleted
  Questions& questions;
  std::filesystem::path stateFolder = {};  ///< where the recovery file is kept; empty for nowhere
  /// The user's folder for music, whether it exists or not.
  std::function<std::filesystem::path()> music = [] { return std::filesystem::path(); };
  /// Where that lies which is installed with the program: "samples", "manual/manual.html". Empty where it is
  /// missing.
  std::function<std::filesystem::path(std::string_view)> installed = [](std::string_view /*name*/) {
    return std::filesystem::path();
  };
};

class MainWindow final : public QMainWindow,
                         private ComposerView,
                         private PlayerView,
                         private DocumentObserver {
  Q_OBJECT

 public:
  explicit MainWindow(const WindowParts& parts);
  ~MainWindow() override;

  /// The program's start: logs it and applies the settings. False when the program has to end at once.
  bool Load();
  /// Offers the song that the last run left unsaved, if there is one.
  void OfferRecovery() { files_->OfferRecovery(); }
  /// At the first start of the program, shows the sample melodies to a user who has none.
  void GreetNewcomer();
  /// The program's end: saves the settings and logs it.
  void Unload();

  /// Opens a melody file as a click in the file list would; its mode follows its extension, the browse
  /// folder its folder. With "AutoPlay" on it is played to its end, unless `mayPlay` is false.
  void OpenFile(const std::filesystem::path& file, bool mayPlay = true);

  /// A picture of the window, made as large as needs no scrolling even where its screen is smaller.
  QPixmap TakePicture();

 signals:
  /// The window was closed: the program is to end.
  void Closed();
  /// A file was dropped onto the window.
  void Dropped(const std::filesystem::path& file);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* NewUpperRow();
  QLayout* NewLowerRow();
  void LayOut();
  void Connect();
  void SetUpFocus();
  void FillMenus();
  std::vector<MenuItem> FileItems();
  std::vector<MenuItem> EditItems();
  std::vector<MenuItem> ViewItems();
  std::vector<MenuItem> PlayItems();
  std::vector<MenuItem> HelpItems();
  QStringList RecentTexts() const;
  QStringList RecoverTexts() const;
  void OpenRecent(int index);
  void Recover(int index);
  void CleanUp();
  void ShowKeys();
  void ShowManual();
  void ShowSamples();
  void ShowAbout();
  void ShowTitle();
  void ShowEdited();
  void ShowMessage(const FileMessage& message);
  void SayPasted(std::string said, const ClipboardMelody& melody);
  void ApplySettings(const Settings& settings);
  Settings CurrentSettings() const;

  // ComposerView
  void ShowMelody(const MelodyText& text) override;
  void ShowComposer() override;
  void ShowFilesOfMode() override;
  // PlayerView
  void ShowFrequency(std::string_view text) override;
  void ShowPicture(int picture) override;
  void Vibrate(bool on) override;
  void ShowPlaying(const std::optional<NowPlaying>& now) override;
  void PaintNow() override;
  // DocumentObserver
  void DocumentChanged(const ChangedRange& range) override;

  WindowParts parts_;
  SettingsDraft settings_;
  PlaySettings playSettings_;
  Player player_;
  Composer composer_;
  PlayControls play_;
  EditCommands edit_;
  bool firstStart_ = false;
  bool melodyBehind_ = false;  ///< the text view shows an older document

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
  MessageBar* bar_;
  StatusLine* status_;
  KeysWindow* keys_ = nullptr;
  CentreArea* centre_ = nullptr;
};

}  // namespace trillomat
