// "Files": the drive list, the file list, and the buttons that save, import and export. It is the host
// of the file commands, and runs the timer that writes the recovery file.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "composer/composer.h"
#include "exchange/midi_read.h"
#include "files/file_browser.h"
#include "files/kept_files.h"
#include "files/recent_files.h"
#include "files/recovery.h"
#include "files/save_commands.h"
#include "files/sound_export.h"
#include "ui/controls.h"
#include "ui/file_list.h"
#include "ui/import_window.h"
#include "ui/qt_text.h"
#include "ui/questions.h"
#include "ui/second_readings.h"

namespace trillomat {

/// What the box works on; all of it outlives it.
struct FilesBoxParts {
  Document& document;
  ReadRecord& record;
  FileStore& files;
  FileKeeper& keeper;
  Questions& questions;
  Composer& composer;
  PlayControls& play;
  const PlaySettings& playSettings;
  Services services;
  std::filesystem::path stateFolder;             ///< of the recovery file; empty keeps none
  std::function<std::filesystem::path()> music;  ///< the user's folder for it
};

class FilesBox : public QGroupBox, private FilesHost {
  Q_OBJECT

 public:
  FilesBox(const FilesBoxParts& parts, QWidget* parent);

  FileBrowser& Browser() { return browser_; }
  const FileBrowser& Browser() const { return browser_; }

  /// To be called at the program's start: lists the files and finds what the last run left. False when the
  /// program has to end at once.
  bool Start();
  /// To be called at the program's normal end. A song that is not saved is kept.
  void End();
  /// After a run that left a song unsaved: says so and offers to bring it back.
  void OfferRecovery();
  /// Keeps the song, which is about to be cleared, among those that can be recovered.
  void KeepBeforeClearing() { recovery_.KeepBeforeReplacing(); }

  // The commands of the buttons and of the "File" menu.
  void New() { browser_.New(); }
  void Open() { browser_.Open(); }
  void Save() { save_.Save(); }
  void SaveOrSaveAs() { save_.SaveOrSaveAs(); }
  void SaveAs() { save_.SaveAs(); }
  void Import();
  void Export();
  void ExportSound() { sound_.Run(); }
  /// Imports the highest voice of a track, and says what was left out. Nothing while another file operation
  /// runs.
  void ImportMidiFile(const std::filesystem::path& file);
  RecentFiles& Recent() { return recent_; }
  const RecentFiles& Recent() const { return recent_; }
  std::vector<KeptSong> KeptSongs() const { return recovery_.Songs(); }
  /// Does what the last message offered.
  void Accept(FileMessage::Offer offer) { browser_.Accept(offer); }
  /// To be called when the user has closed the message, and with it its offer.
  void CloseMessage() { browser_.CloseMessage(); }
  /// The message `said` (UTF-8) about the pasted `text` (Windows-1252), which came to `read`, with the offer
  /// of a better reading, if there is one.
  FileMessage AfterPaste(std::string said, std::string_view text, const ReadResult& read);

  bool modernSpelling = false;  ///< the Export window's check box
  bool tidyImports = false;     ///< that of the Import window

  /// Enables the buttons that can be used now.
  void ShowState();
  /// Lists the folder anew, but not before Start.
  void ShowFilesOfMode();

 signals:
  /// Takes the place of the message before, which an empty one only takes away.
  void Said(const FileMessage& message);
  /// How far long work has come, empty at its end.
  void Progress(const QString& text);

 private:
  void TakeImported(Imported&& imported, const ImportOrigin& origin);
  /// What all file commands work on: the box's own members.
  FileParts CommandParts();
  void NameControls();
  void LayOut();
  QLayout* NewButtonColumn();
  void AddMenuItems();
  void Connect();
  void AskMidiFile();
  std::optional<size_t> AskTrack(const MidiRead& midi);
  void ImportMidi(const std::filesystem::path& file);
  QPushButton* NewCommand(const char* objectName, const ControlText& text, void (FilesBox::*command)());

  // FilesHost
  bool ToneSounds() const override;
  bool MayEdit() const override { return parts_.composer.MayEdit(); }
  void StopPlaying() override;
  void TakeIn(ReadResult&& read, FormatMode mode, const std::filesystem::path& file,
              std::string_view step) override;
  void PasteIn(ElementList&& elements) override;
  void PlayOrShow() override;
  void ShowFiles() override;
  void ShowSelectedFile() override;
  void PopUpFileMenu() override;
  void StartClickTimer() override;
  void StopClickTimer() override;
  void Say(const FileMessage& message) override { emit Said(message); }
  std::filesystem::path MusicFolder() const override { return parts_.music(); }
  void ShowProgress(std::string_view text) override { emit Progress(FromUtf8Bytes(text)); }
  std::optional<std::string> AskNewName(std::string_view name) override;
  std::optional<std::filesystem::path> AskSavePath(const SaveDialog& dialog) override;
  std::optional<std::filesystem::path> AskOpenPath(const OpenDialog& dialog) override;
  bool AskYesNo(std::string_view title, std::string_view question) override;
  void SetSaveCaption(std::string_view caption) override;
  void SetSaveAsCaption(std::string_view caption) override;
  FileMessage WithBetterReading(std::string said, std::string_view bytes, FormatMode mode,
                                const ReadResult& read) override;
  std::optional<BetterReading> ReadBetter() override { return second_.Read(); }
  void ShowChanges() override { second_.ShowChanges(); }

  FilesBoxParts parts_;
  FileOperations operations_;
  Recovery recovery_;
  KeptFiles kept_;
  RecentFiles recent_;
  FileBrowser browser_;
  SaveCommands save_;
  SecondReadings second_;
  SoundExport sound_;
  QTimer clickTimer_;
  QTimer recoveryTimer_;
  bool started_ = false;
  std::optional<KeptSong> left_;    ///< by the last run, which did not save it
  std::optional<uint64_t> pasted_;  ///< the song that the paste made whose text is offered

  QComboBox* drives_;
  QLabel* folder_;
  FileList* list_;
  QMenu* fileMenu_;
  QPushButton* saveButton_;
  QPushButton* saveAsButton_;
  QPushButton* importButton_;
  QPushButton* exportButton_;
};

}  // namespace trillomat
