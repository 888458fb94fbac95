#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QUrl>
#include <QVBoxLayout>

#include "core/scoped_value.h"
#include "files/path_text.h"
#include "ui/key_commands.h"
#include "ui/qt_text.h"
#include "ui/window_size.h"

namespace trillomat {
namespace {

constexpr std::array<std::string_view, 6> kDurationTexts{"Full note", "1/&2 note",  "1/&4 note",
                                                         "1/&8 note", "1/1&6 note", "1/&32 note"};
constexpr std::array<std::string_view, 4> kExtraTexts{"Nothing", "Dotted note", "Double dotted note",
                                                      "2/3 length"};

// Pixels. On a large screen the controls stay together, so that eye and hand need not go far.
constexpr int kWidestCentre = 1600;
constexpr int kHighestUpperRow = 420;  // has room for large fonts, too

QString DurationTip(int index) {
  const QString caption = ToQString(kDurationTexts.at(static_cast<size_t>(index)));
  return WithKey(QString(caption).remove(QLatin1Char('&')), KeyCommand::Durations, index);
}

QString ExtraTip(int /*index*/) {
  return WithKey(QLatin1String(RowOf(KeyCommand::NextExtra).words), KeyCommand::NextExtra);
}

// Where names of files are bytes, toLocalFile would lose those that are no UTF-8; the URL itself holds them.
std::filesystem::path LocalFile(const QUrl& place) {
#ifdef Q_OS_WIN
  return place.toLocalFile().toStdWString();
#else
  return QByteArray::fromPercentEncoding(place.path(QUrl::FullyEncoded).toLatin1()).toStdString();
#endif
}

}  // namespace

MainWindow::MainWindow(const WindowParts& parts)
    : parts_(parts),
      settings_(parts.settings),
      player_(parts.document, {parts.services, parts.clock, parts.sound, *this}),
      composer_(parts.document, parts.record, player_, play_, playSettings_, *this, parts.services),
      play_(parts.document, player_, playSettings_, composer_, parts.services),
      edit_(parts.document, composer_, parts.services,
            {.say = [this](const QString& text) { status_->Say(text); },
             .pasted = [this](std::string said,
                              const ClipboardMelody& melody) { SayPasted(std::move(said), melody); }}),
      menu_(new MainMenu(*menuBar(), parts.document, composer_, playSettings_, player_)),
      noteEntry_(new NoteEntryBox(composer_, this)),
      durations_(new OptionBox({QStringLiteral("Duration"), QStringLiteral("Duration")}, "optDuration",
                               kDurationTexts, DurationTip, this)),
      extras_(new OptionBox({QStringLiteral("More..."), QStringLiteral("Extra length")}, "optDurationExtra",
                            kExtraTexts, ExtraTip, this)),
      allNotes_(new AllNotesBox(composer_, this)),
      insert_(new InsertBox(composer_, this)),
      melody_(new MelodyBox(parts.document, composer_, play_, this)),
      songInfo_(new SongInfoBox(composer_, this)),
      phone_(new PhoneDisplay(this)),
      files_(new FilesBox({parts.document, parts.record, parts.files, parts.keeper, parts.questions,
                           composer_, play_, playSettings_, parts.services, parts.stateFolder, parts.music},
                          this)),
      bar_(new MessageBar(this)),
      status_(new StatusLine(*statusBar(), parts.document, melody_->Strip().Layout().Times())) {
  setObjectName(QStringLiteral("frmMain"));
  setAcceptDrops(true);
  LayOut();
  Connect();
  SetUpFocus();
  parts_.document.AddObserver(*this);
  ShowTitle();
  ShowComposer();
  melody_->Line().TakeFocus();
}

MainWindow::~MainWindow() { parts_.document.RemoveObserver(*this); }

QWidget* MainWindow::NewUpperRow() {
  auto* upper = new QWidget(this);
  upper->setMaximumHeight(kHighestUpperRow);
  auto* row = new QHBoxLayout(upper);
  row->setContentsMargins({});
  row->addWidget(noteEntry_, 4);
  row->addWidget(durations_, 1);
  auto* third = new QVBoxLayout;
  third->addWidget(extras_, 1);
  third->addWidget(allNotes_);
  row->addLayout(third, 1);
  row->addWidget(insert_, 2);
  return upper;
}

QLayout* MainWindow::NewLowerRow() {
  auto* row = new QHBoxLayout;
  row->addWidget(songInfo_, 3);
  row->addWidget(phone_, 3);
  row->addWidget(files_, 4);
  return row;
}

void MainWindow::LayOut() {
  auto* centre = new QWidget(this);
  centre->setMaximumWidth(kWidestCentre);
  auto* column = new QVBoxLayout(centre);
  column->addWidget(NewUpperRow(), 2);
  column->addWidget(bar_);
  column->addWidget(melody_, 3);
  column->addLayout(NewLowerRow(), 3);
  centre_ = new CentreArea(centre, this);
  setCentralWidget(centre_);
  RestoreSize(*this, settings_);
  // The menu bar keeps its place while its menus are hidden, so that nothing jumps when a melody starts.
  menuBar()->setMinimumHeight(menuBar()->heightForWidth(width()));
}

void MainWindow::Connect() {
  connect(durations_, &OptionBox::Clicked, this, [this](int index) { composer_.SelectDuration(index); });
  connect(extras_, &OptionBox::Clicked, this, [this](int index) { composer_.SelectDurationExtra(index); });
  FillMenus();
  connect(files_, &FilesBox::Said, this, &MainWindow::ShowMessage);
  connect(files_, &FilesBox::Progress, status_, &StatusLine::Show);
  connect(songInfo_, &SongInfoBox::Refused, status_, &StatusLine::Say);
  connect(&melody_->Volume(), &QSlider::valueChanged, this,
          [this](int percent) { parts_.sound.SetVolume(percent); });
  connect(bar_, &MessageBar::Closed, files_, &FilesBox::CloseMessage);
  connect(melody_, &MelodyBox::Clearing, files_, &FilesBox::KeepBeforeClearing);
  connect(
      this, &MainWindow::Dropped, this,
      [this](const std::filesystem::path& file) {
        if (!composer_.MayEdit()) return;
        HasMidiName(file) ? files_->ImportMidiFile(file) : OpenFile(file);
      },
      Qt::QueuedConnection);
}

// After a text was typed, Enter or a press on any button gives the focus back to the melody.
void MainWindow::SetUpFocus() {
  for (auto* box : findChildren<QLineEdit*>()) {
    connect(box, &QLineEdit::returnPressed, this, [this] { melody_->Line().TakeFocus(); });
  }
  for (auto* button : findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::pressed, this, [this] {
      if (qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr) melody_->Line().TakeFocus();
    });
  }
  // A key that is held down waits for the tone that sounds, so that the melody is heard element by element.
  auto* keys = new KeyInput(*this, [this] { return !composer_.Sounds(); });
  BindKeys(*keys, {parts_.document, composer_, play_, *melody_});
}

bool MainWindow::Load() {
  Log& log = parts_.services.log;
  log.WriteLog("Application started", 1);
  log.WriteLog("Version:" + FromQString(QCoreApplication::applicationVersion()), 1);
  firstStart_ = IsFirstStart(settings_);
  ApplySettings(LoadSettings(settings_, log));
  return files_->Start();
}

void MainWindow::GreetNewcomer() {
  if (firstStart_) files_->Browser().ShowSamplesToNewcomer(parts_.installed("samples"));
}

void MainWindow::Unload() {
  files_->End();
  PutSettings(CurrentSettings(), settings_);
  PutSize(*this, settings_);
  Save(settings_, parts_.services.log);
  parts_.services.log.WriteLog("Application ended", 1);
}

// In the order in which the settings are listed, through the commands that the user's clicks run.
void MainWindow::ApplySettings(const Settings& settings) {
  composer_.SetOctave(settings.octave);
  composer_.SetMode(settings.mode);
  files_->Browser().SetFolder(settings.browseFolder);
  playSettings_ = {.autoPlay = settings.autoPlay,
                   .playComposing = settings.playComposing,
                   .playMoving = settings.playMoving};
  if (composer_.HasDuration(settings.duration)) composer_.SelectDuration(settings.duration);
  if (composer_.HasDurationExtra(settings.durationExtra)) {
    composer_.SelectDurationExtra(settings.durationExtra);
  }
  player_.outputType = static_cast<OutputType>(settings.output);
  melody_->Volume().setValue(settings.volume);
  melody_->Strip().setVisible(settings.noteStrip);
  melody_->Strip().SetZoomPercent(settings.stripZoom);
  files_->modernSpelling = settings.modernSpelling;
  files_->tidyImports = settings.tidyImport;
  files_->Recent().Set(settings.recentFiles);
  composer_.StartAfresh();
  ShowComposer();
}

Settings MainWindow::CurrentSettings() const {
  const ComposerState& state = composer_.State();
  return {.octave = state.octave,
          .mode = parts_.document.Mode(),
          .browseFolder = files_->Browser().OwnFolder(),
          .autoPlay = playSettings_.autoPlay,
          .playMoving = playSettings_.playMoving,
          .playComposing = playSettings_.playComposing,
          .duration = static_cast<int16_t>(state.duration),
          .durationExtra = static_cast<int16_t>(state.durationExtra),
          .output = static_cast<int16_t>(player_.outputType),
          .volume = static_cast<int16_t>(melody_->Volume().value()),
          .noteStrip = !melody_->Strip().isHidden(),
          .stripZoom = melody_->Strip().ZoomPercent(),
          .modernSpelling = files_->modernSpelling,
          .tidyImport = files_->tidyImports,
          .recentFiles = files_->Recent().Paths()};
}

void MainWindow::OpenFile(const std::filesystem::path& file, bool mayPlay) {
  {
    const ScopedValue autoPlay(playSettings_.autoPlay, playSettings_.autoPlay && mayPlay);
    files_->Browser().OpenFile(file);
  }
  menu_->ShowState();
}

QPixmap MainWindow::TakePicture() {
  const QSize missing = centre_->widget()->size() - centre_->maximumViewportSize();
  setWindowState(Qt::WindowNoState);
  resize(size() + missing.expandedTo({0, 0}));
  QCoreApplication::sendPostedEvents();
  return grab();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  phone_->Vibrate(false);
  event->accept();
  emit Closed();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  const bool oneFile = urls.size() == 1 && urls.front().isLocalFile();
  if (oneFile && composer_.MayEdit()) event->acceptProposedAction();
}

// From the event loop, so that the program the file comes from need not wait until it has been played.
void MainWindow::dropEvent(QDropEvent* event) {
  const std::filesystem::path file = LocalFile(event->mimeData()->urls().value(0));
  event->acceptProposedAction();
  emit Dropped(file);
}

void MainWindow::ShowMelody(const MelodyText& text) {
  melodyBehind_ = false;
  melody_->Line().ShowMelody(text);
  ShowEdited();
}

// To be called after every change of the song or of the cursor.
void MainWindow::ShowEdited() {
  menu_->ShowState();
  status_->ShowState();
  if (composer_.MayEdit()) status_->SpeakElement();  // while the melody plays, it is heard itself
}

// Only a message that offers something goes to the message bar.
void MainWindow::SayPasted(std::string said, const ClipboardMelody& melody) {
  const FileMessage message = files_->AfterPaste(std::move(said), melody.text, melody.read);
  if (message.offer != FileMessage::Offer::None) return ShowMessage(message);
  status_->Say(FromUtf8Bytes(message.text));
}

void MainWindow::ShowMessage(const FileMessage& message) {
  using Offer = FileMessage::Offer;
  BarMessage shown{.text = ShownName(message.text)};
  const auto offer = [&](Offer offered, const QString& caption, bool stays = false) {
    if (message.offer != offered) return;
    shown.actions.push_back({caption, [this, offered] { files_->Accept(offered); }, stays});
  };
  offer(Offer::Restore, QStringLiteral("Restore"));
  offer(Offer::Recover, QStringLiteral("Bring it back"));
  offer(Offer::ReadBetter, ShownName(message.caption), true);
  offer(Offer::ShowChanges, QStringLiteral("Show the changes"), true);
  offer(Offer::CopySamples, QStringLiteral("Copy them to my music"));
  if (shown.actions.empty()) status_->Show(shown.text);  // not Say: the bar speaks
  bar_->Say(std::move(shown));
}

// In a title "[*]" stands for the mark of an unsaved song; in a name it is doubled, which stands for itself.
void MainWindow::ShowTitle() {
  const Document& document = parts_.document;
  QString name = document.File().empty() ? QStringLiteral("Untitled")
                                         : ShownName(Utf8OfPath(document.File().filename()));
  name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
  setWindowTitle(name + QStringLiteral("[*] - Trillomat"));
  setWindowModified(document.IsChanged());
}

void MainWindow::ShowComposer() {
  const QWidget* focus = focusWidget();
  ShowEdited();
  noteEntry_->ShowState(LimitsOf(parts_.document.Mode()).rangeNote);
  durations_->ShowState(composer_.State().duration,
                        [this](int index) { return composer_.HasDuration(index); });
  extras_->ShowState(composer_.State().durationExtra,
                     [this](int index) { return composer_.HasDurationExtra(index); });
  allNotes_->ShowState();
  insert_->ShowState();
  melody_->ShowState();
  songInfo_->ShowState();
  files_->ShowState();
  bar_->EnableActions(composer_.MayEdit());
  // A control that was disabled or hidden under the user's fingers hands the focus to the melody, not to
  // whatever happens to come next.
  if (focus != nullptr && (!focus->isEnabled() || focus->isHidden())) melody_->Line().TakeFocus();
}

void MainWindow::ShowFilesOfMode() { files_->ShowFilesOfMode(); }

void MainWindow::ShowFrequency(std::string_view text) { phone_->ShowFrequency(text); }

void MainWindow::ShowPicture(int picture) { phone_->ShowPicture(picture); }

void MainWindow::Vibrate(bool on) { phone_->Vibrate(on); }

void MainWindow::ShowPlaying(const std::optional<NowPlaying>& now) {
  noteEntry_->ShowSounding(now ? now->tone : std::nullopt);
  melody_->Strip().ShowPlaying(now ? now->index : -1);
}

// Lays out what has changed, then paints it. The events are sent past the event queue, so that no others run.
void MainWindow::PaintNow() {
  if (melodyBehind_) composer_.RefreshMelodyView();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QEvent update(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(this, &update);
}

void MainWindow::DocumentChanged(const ChangedRange& range) {
  melodyBehind_ = melodyBehind_ || range.ElementsChanged() || range.cursor || range.mode;
  if (range.file || range.SongChanged()) ShowTitle();
  if (range.file) status_->ShowState();
  if (range.SongChanged() || range.cursor || range.selection) status_->Show({});
  // A refusal need not be shown once the song was changed; an offer still holds.
  if (range.SongChanged() && bar_->Said().actions.empty()) bar_->Say({});
}

}  // namespace trillomat
