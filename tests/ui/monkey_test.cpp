// Random events at the main window, also in the middle of every operation that lets events run.
// TRILLOMAT_MONKEY_EVENTS sets how many, TRILLOMAT_MONKEY_SEED which.
#include <gmock/gmock.h>

#include <QTimerEvent>

#include "composer/song_info.h"
#include "formats/formats.h"
#include "platform/clock_std.h"
#include "platform/pump_qt.h"
#include "support/silent_services.h"
#include "ui/message_box_qt.h"
#include "ui/monkey.h"

namespace trillomat {
namespace {

int FromEnvironment(const char* name, int fallback) {
  const int value = qEnvironmentVariableIntValue(name);
  return value > 0 ? value : fallback;
}

/// Files in the test's folder alone, whatever path is made up.
class CagedFiles : public FolderStore {
 public:
  using FolderStore::FolderStore;
  uint32_t Drives() override { return FolderStore::Drives() & 1U << ('C' - 'A'); }
  std::filesystem::path NativePath(std::string_view given) const override {
    return given.starts_with("c:") || given.starts_with("C:") ? FolderStore::NativePath(given)
                                                              : std::filesystem::path();
  }
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
  bool PumpEvents() override {
    if (!ending && onEvent && monkey.Number(8 << std::min(monkey.depth, 12)) == 0) onEvent();
    return !ending;
  }
  bool WaitForEvents(double milliseconds) override {
    clock.seconds += milliseconds / 1000 / (1 + monkey.Number(3));
    if (!ending && onEvent && monkey.Number(2) == 0) onEvent();
    return !ending;
  }

  explicit MonkeyPump(Monkey& actor) : monkey(actor) {}
  Monkey& monkey;
  FakeClock clock;
  bool ending = false;
  std::function<void()> onEvent;
};

/// Calls `tick` again and again, also inside itself: a timer that is being handled does not fire, a new one
/// does.
class Ticker : public QObject {
 public:
  Ticker(int milliseconds, std::function<void()> tick) : milliseconds_(milliseconds), tick_(std::move(tick)) {
    startTimer(milliseconds_);
  }

 protected:
  void timerEvent(QTimerEvent* event) override {
    killTimer(event->timerId());
    startTimer(milliseconds_);
    tick_();
  }

 private:
  int milliseconds_;
  std::function<void()> tick_;
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

  void Open(EventPump& pump, const Clock& clock) {
    window.reset();
    document = std::make_unique<Document>();
    window = std::make_unique<MainWindow>(
        WindowParts{*document, record, {log, pump}, clock, sound, settings, files, questions});
    ASSERT_TRUE(window->Load());
    window->show();
  }

  /// What must hold whenever no operation runs.
  void Check() {
    ASSERT_GE(document->Cursor(), -1);
    ASSERT_LE(document->Cursor(), std::max(document->LastIndex(), 0));
    ASSERT_EQ(Find<QPushButton>(*window, "cmdControl(4)").text(), "&Play");
    ASSERT_TRUE(Find<QWidget>(*window, "cmdPause").isEnabled());
    CheckMelody();
    CheckPanel();
    if (++checks_ % 10 == 0) CheckSaving();
  }

  Monkey monkey{static_cast<unsigned>(FromEnvironment("TRILLOMAT_MONKEY_SEED", 2002))};
  FakeSound sound;
  MemoryStore settings;
  TempFolder folder;
  CagedFiles files{folder.Path()};
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
    const auto row = [this](int index, const std::string& text) {
      const auto& box = Find<QLineEdit>(*window, IndexedName("txtSongInfo", index));
      const bool red = box.palette().color(QPalette::Text) == QColor(255, 0, 0);
      EXPECT_TRUE(red || box.text() == ToQString(text)) << text << ", " << box.text().toStdString();
    };
    row(rtttl ? 0 : 2, info.name);
    row(rtttl ? 1 : 4, std::to_string(info.bpm));
    row(rtttl ? 2 : 3, rtttl ? std::to_string(info.loop) : info.composer);
    EXPECT_EQ(Find<QComboBox>(*window, "cboSongInfo(0)").currentText(), ToQString(StyleText(info.style)));
    const QString volume = Find<QComboBox>(*window, "cboSongInfo(1)").currentText();
    EXPECT_TRUE(rtttl || volume == ToQString(info.volume));
    ASSERT_FALSE(HasFailure());
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

TEST_F(MonkeyTest, NothingBreaksWhateverRunsInsideWhatever) {
  const int wanted = FromEnvironment("TRILLOMAT_MONKEY_EVENTS", 6000);
  MonkeyPump pump(monkey);
  while (monkey.events < wanted) {
    pump.ending = false;
    Open(pump, pump.clock);
    QObject::connect(window.get(), &MainWindow::Closed, window.get(), [&] { pump.ending = true; });
    pump.onEvent = [&] {
      questions.savePath = folder / ("s" + std::to_string(monkey.Number(3)));
      questions.yes = monkey.Number(2) == 0;
      monkey.Act(*window, folder);
    };
    // Dialogs and message boxes run event loops of their own.
    const Ticker inFront(0, [&] {
      if (QApplication::activeModalWidget() != nullptr && pump.onEvent) pump.onEvent();
    });
    while (monkey.events < wanted && !pump.ending) {
      pump.onEvent();
      QCoreApplication::processEvents();
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

// The same over the real pump and the real time, for a while.
TEST_F(MonkeyTest, NothingBreaksInRealTime) {
  QtPump pump;
  const StdClock clock;
  Open(pump, clock);
  monkey.mayClose = false;
  const int wanted = FromEnvironment("TRILLOMAT_MONKEY_EVENTS", 6000) / 10;
  bool ended = false;
  QObject::connect(window.get(), &MainWindow::Closed, window.get(), [&] {
    ended = true;
    pump.End();
  });
  const Ticker keys(1, [&] {
    if (ended) return;
    // As on the desktop, the main window cannot be closed while a dialog or message box is in front.
    if (monkey.events < wanted || QApplication::activeModalWidget() != nullptr)
      return monkey.Act(*window, folder);
    window->close();
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return ended; }, 10000 + wanted * 50));
  QCoreApplication::processEvents();
  window->Unload();
}

}  // namespace
}  // namespace trillomat
