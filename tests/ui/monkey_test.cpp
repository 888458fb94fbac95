// Random events at the main window, also in the middle of every operation that lets events run.
// TRILLOMAT_MONKEY_EVENTS sets how many, TRILLOMAT_MONKEY_SEED which.
#include <gmock/gmock.h>

#include <QTimerEvent>

#include "platform/clock_std.h"
#include "platform/pump_qt.h"
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
  uint32_t GetLogicalDrives() override { return FolderStore::GetLogicalDrives() & 1U << ('C' - 'A'); }
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
    for (const char* name : {"a.imy", "b.imy"}) {
      folder.Write(
          name,
          "BEGIN:IMELODY\r\nNAME:Tune\r\nBEAT:900\r\nMELODY:(ledonc2d3r4vibeon@2)&e5\r\nEND:IMELODY\r\n");
    }
    folder.Write("broken.imy", "no melody");
    folder.Write("c.rtx", "tune:d=4,o=5,b=900:c,p,b,8d#6,32e.");
    folder.Write("d.mel", "c+dp(b)e");
    folder.Write("e.emy", "BEGIN:EMELODY\r\nMELODY:cDe.p\r\nEND:EMELODY\r\n");
    folder.MakeFolder("sub");
  }

  void Open(Workspace& ws, const Clock& clock) {
    window = std::make_unique<frmMain>(MainSeams{ws, clock, sound, settings, files, questions});
    ASSERT_TRUE(window->Load());
    window->show();
  }

  /// What must hold whenever no operation runs.
  void Check(Workspace& ws) {
    ASSERT_GE(ws.melody.lCurrentIndex, -1);
    ASSERT_LE(ws.melody.lCurrentIndex, std::max(ws.melody.UpperBound(), 0));
    ASSERT_EQ(Control<QPushButton>(*window, "cmdControl(4)").text(), "&Play");
    ASSERT_TRUE(Control<QWidget>(*window, "cmdPause").isEnabled());
    // The one menu item that changes what the view will show without showing it.
    const bool useDefault = window->findChild<QAction*>("mnuRTTTLUseDefault")->isChecked();
    if (useDefault != std::exchange(usedDefault_, useDefault))
      Control<QPushButton>(*window, "cmdControl(5)").click();
    MelodyTextView view(ws);
    view.bRTTTLUseDefault = useDefault;
    const auto text = view.RefreshMelodyView();
    ASSERT_TRUE(text);
    ASSERT_EQ(Control<QLineEdit>(*window, "txtLeft").text(), ToQString(text->txtLeft));
    ASSERT_EQ(Control<QLineEdit>(*window, "txtRight").text(), ToQString(text->txtRight));
  }

  Monkey monkey{static_cast<unsigned>(FromEnvironment("TRILLOMAT_MONKEY_SEED", 2002))};
  FakeSound sound;
  MemoryStore settings;
  TempFolder folder;
  CagedFiles files{folder.Path()};
  FakeQuestions questions;
  BoxLog log;
  std::unique_ptr<frmMain> window;

 private:
  bool usedDefault_ = false;
};

TEST_F(MonkeyTest, NothingBreaksWhateverRunsInsideWhatever) {
  const int wanted = FromEnvironment("TRILLOMAT_MONKEY_EVENTS", 10000);
  MonkeyPump pump(monkey);
  int closings = 0;
  while (monkey.events < wanted) {
    pump.ending = false;
    Workspace ws(log, pump);
    Open(ws, pump.clock);
    QObject::connect(window.get(), &frmMain::Closed, window.get(), [&] { pump.ending = true; });
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
      ASSERT_NO_FATAL_FAILURE(Check(ws)) << "after event " << monkey.events;
      pump.onEvent = acting;
    }
    closings += pump.ending ? 1 : 0;
    pump.onEvent = nullptr;
    pump.ending = true;
    window->Unload();
    window.reset();
  }
  EXPECT_GT(monkey.largestDepth, 2) << "events did not run inside events";
  RecordProperty("closings", closings);
}

// The same over the real pump and the real time, for a while.
TEST_F(MonkeyTest, NothingBreaksInRealTime) {
  QtPump pump;
  Workspace ws(log, pump);
  const StdClock clock;
  Open(ws, clock);
  monkey.mayClose = false;
  const int wanted = FromEnvironment("TRILLOMAT_MONKEY_EVENTS", 10000) / 10;
  bool ended = false;
  QObject::connect(window.get(), &frmMain::Closed, window.get(), [&] {
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
