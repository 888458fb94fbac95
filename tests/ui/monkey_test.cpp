// A monkey at the main window, which acts whenever anything lets events run: also in the middle of every
// operation. Meanwhile files change on the disk and the sound device fails. After each event the views have
// to be those of the document, what was reported as saved has to be there, and nothing may be locked.
// TRILLOMAT_MONKEY_EVENTS sets how many events, TRILLOMAT_MONKEY_SEED which.
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "composer/song_info.h"
#include "core/limits.h"
#include "core/silent_services.h"
#include "files/path_text.h"
#include "formats/formats.h"
#include "support/caged_files.h"
#include "support/failing_sound.h"
#include "ui/message_box_qt.h"
#include "ui/monkey.h"
#include "ui/monkey_data.h"
#include "ui/monkey_questions.h"

namespace trillomat {
namespace {

const std::vector<std::string> kNames{"a.imy",           "b.imy",     "c.rtx", "d.mel",     "e.emy",
                                      "f.mid",           "g.midi",    "sub",   "saved.imy", "saved.emy",
                                      "saved.rtx",       "saved.mel", "s0",    "s1.imy",    "s0.imy",
                                      "\xC3\xA4[*].imy", "h.txt"};

/// Shows level-2 messages in real boxes, and notices what is reported as saved.
class BoxLog : public Log {
 public:
  void WriteLog(std::string_view message, int16_t level) override {
    if (message == "File Saved" || message == "Saved the file") {
      ++saved;
      if (onSaved) onSaved();
    }
    if (level == 2 && mayShow) QtMessageBox().ShowMessage(message, true);
  }

  bool mayShow = true;
  int saved = 0;
  std::function<void()> onSaved;
};

/// Lets the monkey act inside every pump, the deeper the more rarely, and moves the clock for waits.
class MonkeyPump : public EventPump {
 public:
  MonkeyPump(Dice& dice, const Monkey& monkey) : dice_(dice), monkey_(monkey) {}

  bool PumpEvents() override {
    if (!ending && onEvent && dice_.OneIn(8 << std::min(monkey_.depth, 12))) onEvent();
    return !ending;
  }
  bool WaitForEvents(double milliseconds) override {
    clock.seconds += milliseconds / 1000 / (1 + dice_.Number(3));
    if (!ending && onEvent && dice_.OneIn(2)) onEvent();
    return !ending;
  }

  FakeClock clock;
  bool ending = false;
  std::function<void()> onEvent;

 private:
  Dice& dice_;
  const Monkey& monkey_;
};

class MonkeyTest : public testing::Test {
 protected:
  MonkeyTest() {
    log.onSaved = [this] { CheckSaved(); };
    for (const std::string& name : kNames) folder.Write(name, dice.AnyOf(contents));
    mischief.Remove("sub");
    folder.MakeFolder("sub");
  }

  void Open() {
    monkey.LetGo();
    window.reset();
    document = std::make_unique<Document>();
    sound.Begin();
    window = std::make_unique<MainWindow>(WindowParts{*document,
                                                      record,
                                                      {log, pump},
                                                      pump.clock,
                                                      sound,
                                                      settings,
                                                      files,
                                                      keeper,
                                                      questions,
                                                      stateFolder.Path()});
    ASSERT_TRUE(window->Load());
    window->show();
    QObject::connect(window.get(), &MainWindow::Closed, window.get(), [this] { pump.ending = true; });
    pump.ending = false;
    window->OfferRecovery();
  }

  /// Something happens: to the files, or by the monkey's hand.
  void Act() {
    const auto anyFile = [this] { return std::optional(folder / mischief.AnyName()); };
    questions.savePath = dice.OneIn(20) ? std::nullopt : anyFile();
    questions.openPath = dice.OneIn(20) ? std::nullopt : anyFile();
    questions.yes = dice.OneIn(2);
    if (dice.OneIn(8)) mischief.Act();
    for (const TempFolder* own : {&keptFolder, &stateFolder}) {
      if (!dice.OneIn(60)) continue;
      const auto names = own->Names();
      if (!names.empty()) FileMischief(dice, *own, names, contents).Act();
    }
    monkey.Act(*window);
  }

  /// What must hold whenever no operation runs.
  void Check() {
    ASSERT_GE(document->Cursor(), -1);
    ASSERT_LE(document->Cursor(), std::max(document->LastIndex(), 0));
    ASSERT_EQ(Find<QPushButton>(*window, "cmdControl(4)").text(), "&Play");
    ASSERT_TRUE(Find<QWidget>(*window, "cmdPause").isEnabled());
    ASSERT_FALSE(sound.Loops()) << "a tone goes on";
    CheckMelody();
    CheckPanel();
    CheckAround();
    if (++checks_ % 10 == 0) CheckSaving();
    if (checks_ % 100 == 0) CheckSteps();
  }

  Dice dice{static_cast<unsigned>(qEnvironmentVariable("TRILLOMAT_MONKEY_SEED", "2002").toInt())};
  const std::vector<std::string> contents = FileContents();
  TempFolder folder;
  TempFolder keptFolder;
  TempFolder stateFolder;
  FileMischief mischief{dice, folder, kNames, contents};
  Monkey monkey{dice, mischief, folder};
  MonkeyPump pump{dice, monkey};
  FailingSound sound{dice, pump.clock};
  MemoryStore settings;
  CagedFiles files{folder.Path(), {keptFolder.Path(), stateFolder.Path()}};
  FolderKeeper keeper{files, keptFolder.Path()};
  MonkeyQuestions questions{dice};
  BoxLog log;
  ReadRecord record;
  std::unique_ptr<Document> document;
  std::unique_ptr<MainWindow> window;
  int refusals = 0;  ///< of checked savings

 private:
  void CheckMelody() {
    // The one menu item that changes what the view will show without showing it.
    const bool useDefault = window->findChild<QAction*>("mnuRTTTLUseDefault")->isChecked();
    if (useDefault != std::exchange(usedDefault_, useDefault)) Click(*window, "cmdControl(5)");
    const MelodyText text = TextOf(*document, useDefault, silent_.log);
    ASSERT_EQ(Find<QLineEdit>(*window, "txtLeft").text(), ToQString(text.left));
    ASSERT_EQ(Find<QLineEdit>(*window, "txtRight").text(), ToQString(text.right));
  }

  // A number can be typed, or dropped, with zeros before it; control characters of a damaged file are shown
  // as blanks.
  static QString AsShown(QString text) {
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(' '));
    while (text.size() > 1 && text.startsWith('0')) text.remove(0, 1);
    return text;
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
      ASSERT_TRUE(red || AsShown(box.text()) == AsShown(ToQString(text)))
          << text << ", " << box.text().toStdString();
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
    QString file = ShownName(Utf8OfPath(document->File().filename()));
    file.replace("[*]", "[*][*]");  // as it is written in a title
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

  /// Save As can be pressed, which it cannot while a file operation runs, and writes the document's song; or
  /// it says that it did not, and what stands in the way is as it was.
  void CheckSaving() {
    if (document->IsEmpty()) return;
    const std::string name = "saved." + std::string(LimitsOf(document->Mode()).extension);
    const std::string before = mischief.StateOf(name);
    if (!Saves(name)) {
      const auto& said = Find<QLabel>(*window, "lblMessage");
      ASSERT_TRUE(said.isVisible() && said.text().startsWith("Not saved: ")) << said.text().toStdString();
      ASSERT_EQ(mischief.StateOf(name), before);
      ++refusals;
      mischief.Remove(name);
      ASSERT_TRUE(Saves(name)) << "with nothing in the way; before there was " << before;
    }
    ASSERT_EQ(folder.Read(name), *Write(document->CurrentSong(), document->Mode(), silent_.services));
    ASSERT_FALSE(document->IsChanged());
  }
  bool Saves(const std::string& name) {
    const int before = log.saved;
    questions.savePath = folder / name;
    questions.yes = true;
    questions.mayShow = log.mayShow = false;
    Click(*window, "cmdSaveAs");
    questions.mayShow = log.mayShow = true;
    return log.saved > before;
  }

  /// What is reported as saved is there. The mode may have been changed while it was written.
  void CheckSaved() {
    if (document->IsChanged()) return;
    std::error_code unknown;
    ASSERT_TRUE(std::filesystem::is_regular_file(document->File(), unknown));
    const auto there = files.Read(document->File(), kLargestInput).bytes;
    bool found = false;
    for (int mode = 0; mode < kFormatModes && !found; ++mode) {
      const auto bytes = Write(document->CurrentSong(), static_cast<FormatMode>(mode), silent_.services);
      found = bytes && *bytes == there;
    }
    ASSERT_TRUE(found) << there;
  }

  SilentServices silent_;
  bool usedDefault_ = false;
  int checks_ = 0;
};

#ifdef _WIN32
constexpr const char* kEvents = "1500";  // Wine takes its time with windows and with the clipboard
#else
constexpr const char* kEvents = "4000";
#endif

TEST_F(MonkeyTest, NothingBreaksWhateverRunsInsideWhatever) {
  const int wanted = qEnvironmentVariable("TRILLOMAT_MONKEY_EVENTS", kEvents).toInt();
  while (monkey.events < wanted) {
    Open();
    pump.onEvent = [this] { Act(); };
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
      ASSERT_FALSE(HasFailure()) << "before event " << monkey.events;
      const auto acting = std::exchange(pump.onEvent, nullptr);
      ASSERT_NO_FATAL_FAILURE(Check()) << "after event " << monkey.events;
      pump.onEvent = acting;
    }
    pump.onEvent = nullptr;
    pump.ending = true;
    window->Unload();
  }
  EXPECT_GT(monkey.largestDepth, 2) << "events did not run inside events";
  const std::pair<const char*, int> figures[] = {{"saved", log.saved},
                                                 {"checked refusals", refusals},
                                                 {"drags", monkey.drags},
                                                 {"drops", monkey.Drops()},
                                                 {"changes on disk", mischief.Deeds()},
                                                 {"real questions", questions.shown},
                                                 {"answered file dialogs", monkey.files},
                                                 {"silent tones", sound.failures}};
  std::cout << monkey.events << " events";
  for (const auto& [what, times] : figures) {
    std::cout << ", " << times << " " << what;
    EXPECT_GT(times, wanted / 8000) << what;
  }
  std::cout << "\n";
}

}  // namespace
}  // namespace trillomat
