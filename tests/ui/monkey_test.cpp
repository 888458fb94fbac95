// A monkey at the main window: it presses, types, drags, triggers, opens and closes whatever comes to hand,
// also in the middle of every operation that lets events run. After each event the views have to be those of
// the document, and nothing may be locked. TRILLOMAT_MONKEY_EVENTS sets how many events,
// TRILLOMAT_MONKEY_SEED which.
#include <QClipboard>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>
#include <random>

#include "composer/song_info.h"
#include "core/silent_services.h"
#include "files/path_text.h"
#include "formats/formats.h"
#include "ui/main_window_fixture.h"
#include "ui/message_box_qt.h"

namespace trillomat {
namespace {

constexpr Qt::Key kKeys[] = {Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space,
                             Qt::Key_Home,  Qt::Key_End,    Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Up,
                             Qt::Key_Down,  Qt::Key_Z,      Qt::Key_S,      Qt::Key_X,         Qt::Key_1,
                             Qt::Key_Enter, Qt::Key_Menu,   Qt::Key_Escape, Qt::Key_Q,         Qt::Key_5,
                             Qt::Key_Minus, Qt::Key_Period, Qt::Key_PageUp, Qt::Key_A,         Qt::Key_D,
                             Qt::Key_V};

constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::NoModifier,    Qt::NoModifier,
                                                Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                                Qt::AltModifier};

constexpr const char* kTexts[] = {"",    "0",   "2",     "15",  "16",    "100",         "901",
                                  "abc", "-1",  "ä\nb",  "V7",  "S1",    "99999999999", ")",
                                  "((",  "@0)", "cDe#f", "1.5", "a:b,c", "Ж☺",          "x:d=4:c,8d#,2p,e6."};

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed) {}

  int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

  /// Does one thing to the modal window or menu in front, or else to `window`.
  void Act(MainWindow& window, const TempFolder& folder) {
    ++events;
    largestDepth = std::max(largestDepth, ++depth);
    if (QWidget* popup = QApplication::activePopupWidget()) {
      if (Number(2) == 0 && !popup->actions().isEmpty()) AnyOf(popup->actions())->trigger();
      popup->close();
    } else if (QWidget* modal = QApplication::activeModalWidget()) {
      ActInFront(*modal);
    } else {
      ActOn(window, folder);
    }
    --depth;
  }

  int events = 0;
  int largestDepth = 0;
  int depth = 0;

 private:
  template <class List>
  typename List::value_type AnyOf(const List& things) {
    return things[static_cast<typename List::size_type>(Number(static_cast<int>(things.size())))];
  }
  QString AnyText() { return QString::fromUtf8(kTexts[Number(std::size(kTexts))]); }
  template <class W>
  static QList<W*> Usable(const QWidget& window) {
    QList<W*> usable;
    for (W* widget : window.findChildren<W*>()) {
      // The toolkit's own button for menus that find no room waits for a hand on its menu.
      if (widget->objectName() == "qt_menubar_ext_button") continue;
      if (widget->isVisible() && widget->isEnabled() && widget->window() == &window) usable << widget;
    }
    return usable;
  }

  void ActOn(MainWindow& window, const TempFolder& folder) {
    const int dice = Number(100);
    if (dice < 35) return AnyOf(Usable<QAbstractButton>(window))->click();
    if (dice < 47) return UseStrip(window);
    if (dice < 65) {
      QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
      return QTest::keyClick(focus, kKeys[Number(std::size(kKeys))],
                             kModifiers[Number(std::size(kModifiers))]);
    }
    if (dice < 72) return TypeText(*AnyOf(Usable<QLineEdit>(window)));
    if (dice < 82) return TriggerItem(window);
    if (dice < 92) return UseList(window);
    if (dice < 95) return MoveSlider(window);
    if (dice < 98) return window.OpenFile(folder / AnyOf(folder.Names()), Number(2) == 0);
    if (dice == 98) return window.resize(300 + Number(1500), 200 + Number(900));
    if (Number(10) == 0) window.close();
  }

  // Leaves sooner or later: every dialog has a button that closes it.
  void ActInFront(QWidget& front) {
    for (auto* box : Usable<QPlainTextEdit>(front)) {
      if (!box->isReadOnly()) box->setPlainText(AnyText());
    }
    for (auto* line : Usable<QLineEdit>(front)) line->setText(AnyText());
    const auto buttons = Usable<QAbstractButton>(front);
    if (buttons.empty() || Number(8) == 0) return void(front.close());
    AnyOf(buttons)->click();
  }

  void TypeText(QLineEdit& box) {
    box.setFocus();
    if (!box.isReadOnly()) box.setText(AnyText());
  }

  // Presses, drags, releases and double clicks, each of them an event of its own, so that anything can come
  // between them.
  void UseStrip(const MainWindow& window) {
    auto& strip = Find<NoteStrip>(window, "noteStrip");
    if (!strip.isVisible()) return;
    QWidget* view = strip.viewport();
    const QPoint place(Number(view->width() + 40) - 20, Number(view->height() + 40) - 20);
    const Qt::KeyboardModifiers held = Number(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    switch (Number(6)) {
      case 0: return QTest::mousePress(view, Qt::LeftButton, held, place);
      case 1: return QTest::mouseRelease(view, Qt::LeftButton, held, place);
      case 2: return QTest::mouseDClick(view, Qt::LeftButton, held, place);
      case 3: return QTest::mouseClick(view, Qt::LeftButton, held, place);
      default: return QTest::mouseMove(view, place);
    }
  }

  void TriggerItem(const MainWindow& window) {
    for (const char* list : {"mnuFileRecent", "mnuFileRecover"}) emit Find<QMenu>(window, list).aboutToShow();
    if (Number(10) == 0) QGuiApplication::clipboard()->setText(AnyText());
    QList<QAction*> items;
    for (QAction* item : window.menuBar()->findChildren<QAction*>()) {
      if (item->menu() == nullptr && !item->isSeparator()) items << item;
    }
    QAction* item = AnyOf(items);
    if (item->objectName() != "mnuFileExit" || Number(20) == 0) item->trigger();
  }

  void UseList(const MainWindow& window) {
    const auto& list = Find<QListView>(window, "ListFiles");
    const int rows = list.model()->rowCount();
    if (rows == 0) return;
    const QPoint place = list.visualRect(list.model()->index(Number(rows), 0)).center();
    const int dice = Number(4);
    if (dice == 0) return QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseClick(list.viewport(), dice == 1 ? Qt::RightButton : Qt::LeftButton, {}, place);
  }

  void MoveSlider(const MainWindow& window) {
    if (Number(2) == 0) return Find<QSlider>(window, "SliderOctave").setValue(Number(9));
    QComboBox* list = AnyOf(Usable<QComboBox>(window));
    list->setFocus();
    QTest::keyClick(list, Number(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
  }

  std::mt19937 random_;
};

/// Files in the test's folder alone.
class CagedFiles : public FolderStore {
 public:
  using FolderStore::FolderStore;
  uint32_t Drives() override { return FolderStore::Drives() & 1U << ('C' - 'A'); }
};

/// Shows level-2 messages in real boxes.
class BoxLog : public Log {
 public:
  void WriteLog(std::string_view message, int16_t level) override {
    if (level == 2) QtMessageBox().ShowMessage(message, true);
  }
};

/// Lets the monkey act inside every pump, the deeper the more rarely, and moves the clock for waits.
class MonkeyPump : public EventPump {
 public:
  explicit MonkeyPump(Monkey& monkey) : monkey_(monkey) {}

  bool PumpEvents() override {
    if (!ending && onEvent && monkey_.Number(8 << std::min(monkey_.depth, 12)) == 0) onEvent();
    return !ending;
  }
  bool WaitForEvents(double milliseconds) override {
    clock.seconds += milliseconds / 1000 / (1 + monkey_.Number(3));
    if (!ending && onEvent && monkey_.Number(2) == 0) onEvent();
    return !ending;
  }

  FakeClock clock;
  bool ending = false;
  std::function<void()> onEvent;

 private:
  Monkey& monkey_;
};

class MonkeyTest : public testing::Test {
 protected:
  MonkeyTest() {
    for (const char* name : {"a.imy", "b.imy"}) folder.Write(name, Tune("(ledonc2d3r4vibeon@2)&e5"));
    folder.Write("broken.imy", kRefusedTune);
    folder.Write("c.rtx", "tune:d=4,o=5,b=900:c,p,b,8d#6,32e.");
    folder.Write("d.mel", "c+dp(b)e");
    folder.Write("e.emy", "BEGIN:EMELODY\r\nMELODY:cDe.p\r\nEND:EMELODY\r\n");
    folder.MakeFolder("sub");
  }

  void Open() {
    window.reset();
    document = std::make_unique<Document>();
    window = std::make_unique<MainWindow>(
        WindowParts{*document, record, {log, pump}, pump.clock, sound, settings, files, keeper, questions});
    ASSERT_TRUE(window->Load());
    window->show();
    QObject::connect(window.get(), &MainWindow::Closed, window.get(), [this] { pump.ending = true; });
    pump.ending = false;
  }

  /// What must hold whenever no operation runs.
  void Check() {
    ASSERT_GE(document->Cursor(), -1);
    ASSERT_LE(document->Cursor(), std::max(document->LastIndex(), 0));
    ASSERT_EQ(Find<QPushButton>(*window, "cmdControl(4)").text(), "&Play");
    ASSERT_TRUE(Find<QWidget>(*window, "cmdPause").isEnabled());
    CheckMelody();
    CheckPanel();
    CheckAround();
    if (++checks_ % 10 == 0) CheckSaving();
    if (checks_ % 100 == 0) CheckSteps();
  }

  Monkey monkey{static_cast<unsigned>(qEnvironmentVariable("TRILLOMAT_MONKEY_SEED", "2002").toInt())};
  MonkeyPump pump{monkey};
  FakeSound sound;
  MemoryStore settings;
  TempFolder folder;
  CagedFiles files{folder.Path()};
  TempFolder keptFolder;
  FolderKeeper keeper{files, keptFolder.Path()};
  FakeQuestions questions;
  BoxLog log;
  ReadRecord record;
  std::unique_ptr<Document> document;
  std::unique_ptr<MainWindow> window;

 private:
  void CheckMelody() {
    // The one menu item that changes what the view will show without showing it.
    const bool useDefault = window->findChild<QAction*>("mnuRTTTLUseDefault")->isChecked();
    if (useDefault != std::exchange(usedDefault_, useDefault)) Click(*window, "cmdControl(5)");
    const MelodyText text = TextOf(*document, useDefault, silent_.log);
    ASSERT_EQ(Find<QLineEdit>(*window, "txtLeft").text(), ToQString(text.left));
    ASSERT_EQ(Find<QLineEdit>(*window, "txtRight").text(), ToQString(text.right));
  }

  /// Each row of the panel, but for those whose text is red, shows the song's own information.
  void CheckPanel() {
    const SongInfo& info = document->Info();
    const bool rtttl = document->Mode() == FormatMode::Rtttl;
    if (!rtttl && document->Mode() != FormatMode::IMelody) return;
    const std::pair<const char*, std::string> rows[] = {
        {rtttl ? "txtSongInfo(0)" : "txtSongInfo(2)", info.name},
        {rtttl ? "txtSongInfo(1)" : "txtSongInfo(4)", std::to_string(info.bpm)},
        {rtttl ? "txtSongInfo(2)" : "txtSongInfo(3)", rtttl ? std::to_string(info.loop) : info.composer}};
    for (const auto& [name, text] : rows) {
      const auto& box = Find<QLineEdit>(*window, name);
      const bool red = box.palette().color(QPalette::Text) == QColor(255, 0, 0);
      ASSERT_TRUE(red || box.text() == ToQString(text)) << text << ", " << box.text().toStdString();
    }
    ASSERT_EQ(Find<QComboBox>(*window, "cboSongInfo(0)").currentText(), ToQString(StyleText(info.style)));
    const QString volume = Find<QComboBox>(*window, "cboSongInfo(1)").currentText();
    ASSERT_TRUE(rtttl || volume == ToQString(info.volume));
  }

  /// Note strip, title and menu.
  void CheckAround() {
    const StripTimes times(*document);
    const StripLayout& strip = Find<NoteStrip>(*window, "noteStrip").Layout();
    ASSERT_EQ(strip.Times().Total(), times.Total());
    const int32_t place = document->Cursor() + 1;
    ASSERT_EQ(strip.CursorPlace(), strip.scale.WidthOf(times.Before(place)));
    ASSERT_EQ(window->isWindowModified(), document->IsChanged());
    const QString file = ShownName(Utf8OfPath(document->File().filename()));
    ASSERT_TRUE(window->windowTitle().startsWith(file.isEmpty() ? "Untitled" : file));
    const bool selected = !document->Selection().IsEmpty();
    ASSERT_EQ(window->findChild<QAction*>("mnuEditCut")->isEnabled(), selected);
    const ElementRange range = document->Selection();
    ASSERT_TRUE(!selected || (range.begin >= 0 && range.end <= document->LastIndex() + 1));
  }

  /// What was done last is taken back and made again.
  void CheckSteps() {
    auto& undo = Find<QAction>(*window, "mnuEditUndo");
    auto& redo = Find<QAction>(*window, "mnuEditRedo");
    for (int i = 0; i < 40 && redo.isEnabled(); ++i) redo.trigger();
    if (redo.isEnabled()) return;
    const Song song = document->CurrentSong();
    const int32_t cursor = document->Cursor();
    const ElementRange selection = document->Selection();
    for (int i = 0; i < 40 && undo.isEnabled(); ++i) undo.trigger();
    ASSERT_NO_FATAL_FAILURE(CheckAround());
    ASSERT_NO_FATAL_FAILURE(CheckMelody());
    while (redo.isEnabled()) redo.trigger();
    ASSERT_EQ(document->CurrentSong(), song);
    ASSERT_EQ(document->Cursor(), cursor);
    ASSERT_EQ(document->Selection(), selection);
    ASSERT_NO_FATAL_FAILURE(CheckMelody());
  }

  /// Save As can be pressed, which it cannot while a file operation runs, and writes the document's song.
  void CheckSaving() {
    if (document->IsEmpty()) return;
    const std::string name = "saved." + std::string(LimitsOf(document->Mode()).extension);
    questions.savePath = folder / name;
    questions.yes = true;
    Click(*window, "cmdSaveAs");
    ASSERT_EQ(folder.Read(name), *Write(document->CurrentSong(), document->Mode(), silent_.services));
    ASSERT_FALSE(document->IsChanged());
  }

  SilentServices silent_;
  bool usedDefault_ = false;
  int checks_ = 0;
};

#ifdef _WIN32
constexpr const char* kEvents = "2000";  // Wine takes its time with windows and with the clipboard
#else
constexpr const char* kEvents = "6000";
#endif

TEST_F(MonkeyTest, NothingBreaksWhateverRunsInsideWhatever) {
  const int wanted = qEnvironmentVariable("TRILLOMAT_MONKEY_EVENTS", kEvents).toInt();
  while (monkey.events < wanted) {
    Open();
    pump.onEvent = [&] {
      questions.savePath = folder / ("s" + std::to_string(monkey.Number(3)));
      questions.yes = monkey.Number(2) == 0;
      monkey.Act(*window, folder);
    };
    // Dialogs and message boxes run event loops of their own, also inside each other. A timer that is being
    // handled fires again only when it is started anew.
    QTimer inFront;
    QObject::connect(&inFront, &QTimer::timeout, window.get(), [&] {
      inFront.start(0);
      if (QApplication::activeModalWidget() != nullptr && pump.onEvent) pump.onEvent();
    });
    inFront.start(0);
    while (monkey.events < wanted && !pump.ending) {
      pump.onEvent();
      QCoreApplication::processEvents();
      // What is copied again and again would double without end.
      if (document->Size() > 2000) Click(*window, "cmdControl(0)");
      if (pump.ending) break;
      const auto acting = std::exchange(pump.onEvent, nullptr);
      ASSERT_NO_FATAL_FAILURE(Check()) << "after event " << monkey.events;
      pump.onEvent = acting;
    }
    pump.onEvent = nullptr;
    pump.ending = true;
    window->Unload();
  }
  EXPECT_GT(monkey.largestDepth, 2) << "events did not run inside events";
}

}  // namespace
}  // namespace trillomat
