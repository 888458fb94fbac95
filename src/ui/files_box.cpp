#include "ui/files_box.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "core/code_page.h"
#include "core/number_text.h"
#include "files/path_text.h"
#include "files/read_file.h"
#include "files/refusal_text.h"
#include "ui/export_window.h"
#include "ui/exported_sound.h"
#include "ui/key_table.h"
#include "ui/qt_text.h"
#include "ui/rename_window.h"

namespace trillomat {
namespace {

constexpr int kClickDelay = 200;  // milliseconds

// "2: Lead, 214 notes"
QString TrackText(const MidiTrackTitle& track) {
  QString text = QString::number(track.number);
  if (!track.name.empty()) text += QStringLiteral(": ") + ShownName(ToUtf8(track.name));
  text += QStringLiteral(", ") + QString::fromStdString(Counted(track.notes, "note", "notes"));
  return track.drums ? text + QStringLiteral(" (drums)") : text;
}

}  // namespace

FilesBox::FilesBox(const FilesBoxParts& parts, QWidget* parent)
    : QGroupBox(QStringLiteral("Files"), parent),
      parts_(parts),
      recovery_(parts.document, parts.files, parts.stateFolder, parts.services.log),
      kept_(parts.files, parts.keeper),
      browser_(CommandParts()),
      save_(CommandParts(), browser_),
      second_(*this, parts.record, parts.services),
      sound_(CommandParts(), browser_, ExportedSound),
      drives_(new QComboBox(this)),
      folder_(new QLabel(this)),
      list_(new FileList(browser_.Rows(), this)),
      fileMenu_(new QMenu(this)),
      saveButton_(NewCommand("cmdSave",
                             {QStringLiteral("Sa&ve"), QStringLiteral("Save over the selected file"),
                              WithKey("Save over the selected file", KeyCommand::Save)},
                             &FilesBox::Save)),
      saveAsButton_(NewCommand("cmdSaveAs",
                               {QStringLiteral("Save As"), QStringLiteral("Save under a new name"),
                                WithKey("Save under a new name", KeyCommand::SaveAs)},
                               &FilesBox::SaveAs)),
      importButton_(NewCommand("cmdImport",
                               {QStringLiteral("I&mport"), QStringLiteral("Import a pasted melody"),
                                QStringLiteral("Import a pasted melody")},
                               &FilesBox::Import)),
      exportButton_(NewCommand("cmdExport",
                               {QStringLiteral("E&xport"), QStringLiteral("Export the melody for a phone"),
                                QStringLiteral("Export the melody for a phone")},
                               &FilesBox::Export)) {
  NameControls();
  LayOut();
  AddMenuItems();
  Connect();
}

FileParts FilesBox::CommandParts() {
  return {parts_.document, parts_.record, parts_.files, operations_,    recovery_,
          kept_,           recent_,       *this,        parts_.services};
}

QPushButton* FilesBox::NewCommand(const char* objectName, const ControlText& text,
                                  void (FilesBox::*command)()) {
  QPushButton* button = NewButton(QLatin1String(objectName), text, this);
  connect(button, &QPushButton::clicked, this, command);
  return button;
}

void FilesBox::NameControls() {
  NameControl(*drives_, QStringLiteral("cboDrives"), {{}, QStringLiteral("Drive")});
  drives_->setFocusPolicy(Qt::TabFocus);
  drives_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  NameControl(
      *list_, QStringLiteral("ListFiles"),
      {{},
       QStringLiteral("Folders and melody files"),
       QStringLiteral("Click a file to open it, double-click a folder to enter it, or press Enter; the "
                      "right button or the menu key deletes and renames")});
  list_->setAccessibleDescription(list_->toolTip());  // the toolkit takes it from there for others alone
  folder_->setObjectName(QStringLiteral("lblFolder"));
  folder_->setAccessibleDescription(QStringLiteral("The folder that the list shows"));
  folder_->setTextFormat(Qt::PlainText);
  // A long path must not widen the window.
  folder_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FilesBox::LayOut() {
  auto* drive = new QHBoxLayout;
  drive->addWidget(NewLabel(QStringLiteral("lblDrive"), QStringLiteral("Select drive:"), drives_, this));
  drive->addWidget(drives_, 1);
  auto* lower = new QHBoxLayout;
  lower->addWidget(list_, 1);
  lower->addLayout(NewButtonColumn());
  auto* column = new QVBoxLayout(this);
  column->addLayout(drive);
  column->addWidget(folder_);
  column->addLayout(lower, 1);
}

QLayout* FilesBox::NewButtonColumn() {
  auto* column = new QVBoxLayout;
  column->addWidget(saveButton_);
  column->addWidget(saveAsButton_);
  column->addStretch();
  column->addWidget(importButton_);
  column->addWidget(exportButton_);
  return column;
}

void FilesBox::AddMenuItems() {
  fileMenu_->setObjectName(QStringLiteral("mnuRight"));
  const auto add = [this](const char* objectName, const QString& caption, void (FileBrowser::*command)()) {
    QAction* item = fileMenu_->addAction(caption);
    item->setObjectName(QLatin1String(objectName));
    connect(item, &QAction::triggered, this, [this, command] { std::invoke(command, browser_); });
  };
  add("mnuDelete", QStringLiteral("&Delete"), &FileBrowser::DeleteSelected);
  add("mnuRename", QStringLiteral("&Rename"), &FileBrowser::RenameSelected);
}

void FilesBox::Connect() {
  connect(list_, &FileList::Clicked, this, [this](int row) { browser_.Click(row); });
  connect(list_, &FileList::DoubleClicked, this, [this](int row) { browser_.DoubleClick(row); });
  connect(list_, &FileList::MenuRequested, this, [this](int row) { browser_.OpenMenu(row); });
  connect(list_, &FileList::Progress, this, &FilesBox::Progress);
  connect(drives_, &QComboBox::activated, this,
          [this](int index) { browser_.ChooseDrive(drives_->itemText(index).toStdString()); });
  connect(&clickTimer_, &QTimer::timeout, this, [this] { browser_.ClickTimerRan(); });
  connect(&recoveryTimer_, &QTimer::timeout, this, [this] { recovery_.Tick(); });
}

bool FilesBox::Start() {
  if (!browser_.FillDrives()) return false;
  started_ = true;
  browser_.Refresh();
  left_ = recovery_.Start();
  recoveryTimer_.start(Recovery::kTickInterval);
  return true;
}

void FilesBox::ShowFilesOfMode() {
  if (started_) browser_.Refresh();
}

void FilesBox::End() {
  recoveryTimer_.stop();
  recovery_.End();
}

void FilesBox::OfferRecovery() {
  if (left_) browser_.OfferLeft(*std::exchange(left_, std::nullopt));
}

void FilesBox::Import() {
  const auto token = operations_.Begin();
  if (!token) return;
  ImportWindow window(parts_.record, parts_.services, this->window());
  window.SetTidies(tidyImports);
  window.exec();
  tidyImports = window.Tidies();
  if (window.WantsMidi()) return AskMidiFile();
  if (auto& imported = window.Result()) TakeImported(*std::move(imported), window.Origin());
}

void FilesBox::TakeImported(Imported&& imported, const ImportOrigin& origin) {
  ReadResult& read = imported.read;
  if (!read) {
    const FileMessage said =
        second_.OfferAfterRefusal("Not imported: " + RefusalText({}, *read.refusal), origin, read);
    parts_.record = read.record;
    return Say(said);
  }
  FileMessage done = second_.OfferAfterImport(origin, read);
  if (!imported.notAdapted.empty()) {
    done.text = JoinedSentences("Not adapted: " + ToUtf8(imported.notAdapted), done.text);
  }
  browser_.TakeImported(std::move(read), done);
}

void FilesBox::AskMidiFile() {
  const auto file = AskOpenPath({parts_.files.NativePath(browser_.Folder()), "MIDI files (*.mid *.midi)"});
  if (file) ImportMidi(*file);
}

void FilesBox::ImportMidiFile(const std::filesystem::path& file) {
  const auto token = operations_.Begin();
  if (token) ImportMidi(file);
}

// The file is read a second time where another track is chosen.
void FilesBox::ImportMidi(const std::filesystem::path& file) {
  const auto bytes = ReadFile(file, parts_.files);
  if (!bytes) return Say({"Not imported: " + ToUtf8(bytes.Why().why)});
  const FormatMode mode = parts_.document.Mode();
  const auto read = [&](std::optional<size_t> track) {
    return ReadMidiFile(*bytes, mode, track, parts_.record, parts_.services);
  };
  MidiRead midi = read({});
  if (midi.tracks.size() > 1) {
    const std::optional<size_t> track = AskTrack(midi);
    if (!track) return;
    if (*track != midi.track) midi = read(track);
  }
  const std::string name = Utf8OfPath(file.filename());
  if (!midi.read) return Say({"Not imported: " + RefusalText(name, *midi.read.refusal)});
  if (mode != parts_.document.Mode()) return Say({"Not imported: the format was changed meanwhile"});
  std::string done;
  for (const std::string& each : midi.dropped) done += "; " + ToUtf8(each);
  if (!done.empty()) done.insert(0, "Imported " + name);
  browser_.TakeImported(std::move(midi.read), {done});
}

// The number of the track that the user chooses.
std::optional<size_t> FilesBox::AskTrack(const MidiRead& midi) {
  QStringList tracks;
  int proposed = 0;
  for (const MidiTrackTitle& track : midi.tracks) {
    if (track.number == midi.track) proposed = static_cast<int>(tracks.size());
    tracks << TrackText(track);
  }
  const auto chosen = parts_.questions.AskTrack(window(), tracks, proposed);
  if (!chosen) return std::nullopt;
  return midi.tracks.at(static_cast<size_t>(*chosen)).number;
}

void FilesBox::Export() {
  const auto token = operations_.Begin();
  if (!token) return;
  if (parts_.document.IsEmpty()) return parts_.services.log.WriteLog("Nothing to export", 2);
  ExportWindow window(parts_.document.SharedSong(), modernSpelling, parts_.services, this->window());
  window.exec();
  modernSpelling = window.ModernSpelling();
}

void FilesBox::ShowState() {
  const bool edit = parts_.composer.MayEdit();
  saveButton_->setEnabled(edit && browser_.CanSave());
  for (QPushButton* button : {saveAsButton_, importButton_, exportButton_}) button->setEnabled(edit);
}

bool FilesBox::ToneSounds() const { return parts_.composer.Sounds(); }

void FilesBox::StopPlaying() {
  if (parts_.play.State() != PlayState::Stopped) parts_.play.Press(Control::Stop);
}

void FilesBox::TakeIn(ReadResult&& read, FormatMode mode, const std::filesystem::path& file,
                      std::string_view step) {
  parts_.composer.TakeIn({.elements = std::move(read.elements),
                          .record = std::move(read.record),
                          .mode = mode,
                          .file = file,
                          .step = step});
}

FileMessage FilesBox::AfterPaste(std::string said, std::string_view text, const ReadResult& read) {
  const uint64_t song = parts_.document.SongNumber();
  if (text.empty()) return {std::move(said)};
  FileMessage message =
      second_.WithOffer(std::move(said), text, {parts_.document.Mode(), false, TextSource::Clipboard}, read);
  if (message.offer != FileMessage::Offer::None) pasted_ = read ? std::optional(song) : std::nullopt;
  return message;
}

void FilesBox::PasteIn(ElementList&& elements) {
  if (pasted_ == parts_.document.SongNumber()) parts_.composer.Undo();
  pasted_.reset();
  parts_.composer.Paste(std::move(elements));
}

void FilesBox::PlayOrShow() {
  if (parts_.playSettings.autoPlay) return parts_.play.Press(Control::Play);
  parts_.composer.RefreshMelodyView();
}

void FilesBox::ShowFiles() {
  const QSignalBlocker quietDrives(drives_);
  drives_->clear();
  for (const std::string& drive : browser_.Drives()) drives_->addItem(ShownName(drive));
  drives_->setCurrentIndex(browser_.CurrentDrive());
  ShowSpoken(*folder_, QStringLiteral("Current folder"), ShownName(browser_.Folder()));
  folder_->setToolTip(PlainToolTip(folder_->text()));
  list_->Refill();
  ShowSelectedFile();
}

void FilesBox::ShowSelectedFile() {
  list_->ShowSelected(browser_.SelectedRow());
  ShowState();
}

void FilesBox::PopUpFileMenu() { fileMenu_->popup(list_->MenuPlace()); }

void FilesBox::StartClickTimer() { clickTimer_.start(kClickDelay); }

void FilesBox::StopClickTimer() { clickTimer_.stop(); }

std::optional<std::string> FilesBox::AskNewName(std::string_view name) {
  RenameWindow dialog(FromUtf8Bytes(name), window());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.NewName().toStdString();
}

std::optional<std::filesystem::path> FilesBox::AskSavePath(const SaveDialog& dialog) {
  return parts_.questions.AskSavePath(window(), dialog);
}

std::optional<std::filesystem::path> FilesBox::AskOpenPath(const OpenDialog& dialog) {
  return parts_.questions.AskOpenPath(window(), dialog);
}

bool FilesBox::AskYesNo(std::string_view title, std::string_view question) {
  return parts_.questions.AskYesNo(window(), FromUtf8Bytes(title), FromUtf8Bytes(question));
}

void FilesBox::SetSaveCaption(std::string_view caption) {
  saveButton_->setText(caption == "Save" ? QStringLiteral("Sa&ve") : FromUtf8Bytes(caption));
}

void FilesBox::SetSaveAsCaption(std::string_view caption) { saveAsButton_->setText(FromUtf8Bytes(caption)); }

FileMessage FilesBox::WithBetterReading(std::string said, std::string_view bytes, FormatMode mode,
                                        const ReadResult& read) {
  return second_.WithOffer(std::move(said), bytes, {.mode = mode}, read);
}

}  // namespace trillomat
