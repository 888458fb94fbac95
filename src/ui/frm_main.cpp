#include "ui/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "ui/frm_about.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr std::array<std::string_view, 6> kDurationTexts{"Full note", "1/&2 note",  "1/&4 note",
                                                         "1/&8 note", "1/1&6 note", "1/&32 note"};
constexpr std::array<std::string_view, 4> kExtraTexts{"Nothing", "Dotted note", "Double dotted note",
                                                      "2/3 length"};

constexpr QSize kFirstSize(1024, 720);

}  // namespace

frmMain::frmMain(const MainSeams& seams)
    : seams_(seams),
      ws_(seams.workspace),
      player_(ws_, seams.clock, seams.sound, *this),
      composer_(ws_, player_, playSettings_, *this),
      play_(ws_, player_, playSettings_, composer_),
      menu_(new MainMenu(*menuBar(), ws_, composer_, playSettings_, player_)),
      noteEntry_(new NoteEntryBox(composer_, this)),
      durations_(new OptionBox(QStringLiteral("Duration"), "optDuration", kDurationTexts, this)),
      extras_(new OptionBox(QStringLiteral("More..."), "optDurationExtra", kExtraTexts, this)),
      allNotes_(new AllNotesBox(composer_, this)),
      insert_(new InsertBox(composer_, this)),
      melody_(new MelodyBox(composer_, play_, player_, this)),
      songInfo_(new SongInfoBox(composer_, this)),
      phone_(new PhoneDisplay(this)),
      files_(new FilesBox(
          {ws_, seams.files, seams.questions, player_, composer_, play_, playSettings_, *this}, this)),
      recovery_(new RecoveryKeeper(ws_, seams.files, seams.stateFolder, files_->Opener(), this)) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Trillomat"));
  setAcceptDrops(true);
  LayOut();
  Connect();
  GiveFocusBack();
  ShowComposer();
  melody_->Line().TakeFocus();
}

void frmMain::LayOut() {
  auto* upper = new QHBoxLayout;
  upper->addWidget(noteEntry_, 1);
  upper->addWidget(durations_);
  auto* third = new QVBoxLayout;
  third->addWidget(extras_, 1);
  third->addWidget(allNotes_);
  upper->addLayout(third);
  upper->addWidget(insert_);
  auto* lower = new QHBoxLayout;
  lower->addWidget(songInfo_, 3);
  lower->addWidget(phone_);
  lower->addWidget(files_, 4);
  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->addLayout(upper);
  column->addWidget(melody_);
  column->addLayout(lower, 1);
  setCentralWidget(centre);
  // The menu bar keeps its place while its menus are hidden, so that nothing jumps when a melody starts.
  menuBar()->setMinimumHeight(menuBar()->heightForWidth(kFirstSize.width()));
  resize(kFirstSize);
}

void frmMain::Connect() {
  connect(durations_, &OptionBox::Clicked, this, [this](int index) { composer_.optDuration_Click(index); });
  connect(extras_, &OptionBox::Clicked, this, [this](int index) { composer_.optDurationExtra_Click(index); });
  connect(menu_, &MainMenu::ExitRequested, this, &QWidget::close);
  connect(menu_, &MainMenu::CleanUpRequested, this, [this] { CleanUpSettings(seams_.settings, ws_.log); });
  connect(menu_, &MainMenu::RecoverRequested, this, [this] {
    if (!files_->FileOperationRuns()) recovery_->RecoverLast();
  });
  connect(melody_, &MelodyBox::Clearing, this, [this] { recovery_->KeepBeforeReplacing(); });
  connect(
      this, &frmMain::Dropped, this, [this](const QString& file) { OpenFile(file.toStdWString()); },
      Qt::QueuedConnection);
  connect(menu_, &MainMenu::AboutRequested, this,
          [this] { frmAbout(QCoreApplication::applicationVersion(), this).exec(); });
}

// Who has typed a text goes back to the melody, and its keys, with Enter or with the next button.
void frmMain::GiveFocusBack() {
  for (const auto* box : findChildren<QLineEdit*>()) {
    connect(box, &QLineEdit::returnPressed, this, [this] { melody_->Line().TakeFocus(); });
  }
  for (const auto* button : findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::pressed, this, [this] {
      if (qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr) melody_->Line().TakeFocus();
    });
  }
}

bool frmMain::Load() {
  ws_.log.WriteLog("Application started", 1);
  ws_.log.WriteLog("Version:" + FromQString(QCoreApplication::applicationVersion()), 1);
  ApplySettings(LoadSettings(seams_.settings, ws_.log));
  if (!files_->Browser().FillDrives()) return false;
  files_->Browser().UpdateListFiles();
  recovery_->Start();
  return true;
}

void frmMain::Unload() {
  recovery_->End();
  SaveSettings(CurrentSettings(), seams_.settings);
  ws_.log.WriteLog("Application ended", 1);
}

// In the order in which the settings are listed, through the handlers that the user's clicks run.
void frmMain::ApplySettings(const Settings& settings) {
  composer_.SliderOctave_Change(settings.Scale);
  composer_.mnuSettingFormatType_Click(settings.Mode);
  files_->Browser().sBrowseFolder = settings.BrowseFolder;
  playSettings_ = {.bAutoPlay = settings.AutoPlay,
                   .bPlayComposing = settings.PlayComposing,
                   .bPlayMoving = settings.PlayMoving};
  if (composer_.HasDuration(settings.Duration)) composer_.optDuration_Click(settings.Duration);
  if (composer_.HasDurationExtra(settings.DurationExtra)) {
    composer_.optDurationExtra_Click(settings.DurationExtra);
  }
  player_.outputType = static_cast<OutputType>(settings.OutPut);
  ShowComposer();
}

Settings frmMain::CurrentSettings() const {
  const ComposerState& state = composer_.State();
  return {.Scale = state.octave,
          .Mode = ws_.iNoteMode,
          .BrowseFolder = files_->Browser().sBrowseFolder,
          .AutoPlay = playSettings_.bAutoPlay,
          .PlayMoving = playSettings_.bPlayMoving,
          .PlayComposing = playSettings_.bPlayComposing,
          .Duration = static_cast<int16_t>(state.duration),
          .DurationExtra = static_cast<int16_t>(state.durationExtra),
          .OutPut = static_cast<int16_t>(player_.outputType)};
}

void frmMain::OpenFile(const std::filesystem::path& file, bool mayPlay) {
  if (mayPlay) return files_->OpenFile(file);
  const bool autoPlay = std::exchange(playSettings_.bAutoPlay, false);
  files_->OpenFile(file);
  playSettings_.bAutoPlay = autoPlay;
  menu_->ShowState();
}

void frmMain::closeEvent(QCloseEvent* event) {
  phone_->StopVibration();
  event->accept();
  emit Closed();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls.front().isLocalFile()) event->acceptProposedAction();
}

// From the event loop, so that the program the file comes from need not wait until it has been played.
void frmMain::dropEvent(QDropEvent* event) {
  const QString file = event->mimeData()->urls().value(0).toLocalFile();
  event->acceptProposedAction();
  emit Dropped(file);
}

void frmMain::ShowMelody(const MelodyViewText& text) {
  recovery_->MarkChanged();
  melody_->Line().ShowMelody(text);
}

void frmMain::ShowComposer() {
  recovery_->MarkChanged();
  const QWidget* focus = focusWidget();
  menu_->ShowState();
  noteEntry_->ShowState(LimitsOf(ws_.iNoteMode).rangeNote);
  durations_->ShowState(composer_.State().duration,
                        [this](int index) { return composer_.HasDuration(index); });
  extras_->ShowState(composer_.State().durationExtra,
                     [this](int index) { return composer_.HasDurationExtra(index); });
  allNotes_->ShowState();
  insert_->ShowState();
  melody_->ShowState();
  songInfo_->ShowState();
  files_->ShowState();
  // A control that was disabled or hidden under the user's fingers hands the focus to the melody, not to
  // whatever happens to come next.
  if (focus != nullptr && (!focus->isEnabled() || focus->isHidden())) melody_->Line().TakeFocus();
}

void frmMain::UpdateListFiles() { files_->Browser().UpdateListFiles(); }

void frmMain::ShowFrequency(std::string_view text) { phone_->ShowFrequency(text); }

void frmMain::ShowPicture(int picture) { phone_->ShowPicture(picture); }

void frmMain::EnableTimer(int timer) {
  if (timer == kVibrationTimer) phone_->StartVibration();
  if (timer == kFileClickTimer) files_->StartClickTimer();
}

void frmMain::DisableTimer(int timer) {
  if (timer == kVibrationTimer) phone_->StopVibration();
  if (timer == kFileClickTimer) files_->StopClickTimer();
}

}  // namespace trillomat
