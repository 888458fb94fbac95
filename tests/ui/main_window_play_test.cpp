// The play controls, the phone, and what is locked while a melody plays.
#include <QElapsedTimer>
#include <QMenuBar>
#include <QSet>
#include <QTimer>

#include "platform/clock_std.h"
#include "platform/pump_qt.h"
#include "ui/main_window.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const char* const kLocked[] = {"cmdSaveAs",     "cmdImport",     "cmdExport",    "cmdLowHigh",
                               "cmdDuration",   "cmdScaleDown",  "cmdScaleUP",   "cmdControl(0)",
                               "cmdControl(1)", "cmdControl(5)", "cmdLeft",      "cmdRight",
                               "cmdEraseLeft",  "cmdEraseRight", "cmdTone(0)",   "cmdTone(11)",
                               "cmdPause",      "cmdInsert(0)",  "cmdInsert(10)"};
const char* const kFree[] = {"cmdControl(2)",  "cmdControl(3)",  "cmdControl(4)",
                             "SliderOctave",   "optDuration(3)", "cboVolume",
                             "txtSongInfo(2)", "ListFiles",      "cboDrives"};

class MainWindowPlay : public MainWindowTest {
 protected:
  MainWindowPlay() {
    Press("optDuration(2)");
    SetToggle("mnuSettingPlayComposing", false);
  }
  QString PlayCaption() { return Get<QPushButton>("cmdControl(4)").text().remove('&'); }
  int Picture() {
    int shown = -1;
    for (int i = 0; i < 4; ++i) {
      if (Get<QWidget>(IndexedName("ImageMS", i)).isVisible()) shown = shown < 0 ? i : 99;
    }
    return shown;
  }
};

TEST_F(MainWindowPlay, PlayWalksTheMelodyLockedAndUnlocksAtTheEnd) {
  Enter("aba");
  std::vector<std::string> shown;
  sound.onBeep = [&] {
    shown.push_back(Shown());
    EXPECT_EQ(PlayCaption(), "Playing");
    for (const char* name : kLocked) EXPECT_FALSE(Get<QWidget>(name).isEnabled()) << name;
    for (const char* name : kFree) EXPECT_TRUE(Get<QWidget>(name).isEnabled()) << name;
    for (QAction* menu : window.menuBar()->actions()) EXPECT_FALSE(menu->isVisible());
    Press("cmdControl(4)");  // ignored: it plays already
  };
  Press("cmdControl(4)");
  EXPECT_THAT(shown, ElementsAre("*4a2|*4b2 *4a2", "*4a2 *4b2|*4a2", "*4a2 *4b2 *4a2|"));
  EXPECT_THAT(sound.beeps, SizeIs(3));
  EXPECT_EQ(Get<QLabel>("lblFrequency").text().toInt(), sound.beeps.back());
  EXPECT_EQ(PlayCaption(), "Play");
  for (const char* name : kLocked) EXPECT_TRUE(Get<QWidget>(name).isEnabled()) << name;
  for (QAction* menu : window.menuBar()->actions()) EXPECT_TRUE(menu->isVisible());
  EXPECT_THAT(log.lines, ElementsAre("1: Done Playing"));
}

TEST_F(MainWindowPlay, StopPauseAndTheOtherButtons) {
  Enter("abab");
  Press("cmdControl(1)");
  EXPECT_EQ(Shown(), "|*4a2 *4b2 *4a2 *4b2");
  Press("cmdControl(5)");
  EXPECT_EQ(Shown(), "*4a2 *4b2 *4a2 *4b2|");
  // Paused behind the second tone, resumed by Play from inside the pause, and stopped behind the third.
  sound.onBeep = [this] {
    if (sound.beeps.size() == 2) Press("cmdControl(2)");
    if (sound.beeps.size() == 3) Press("cmdControl(3)");
  };
  int pumps = 0;
  pump.onPump = [&](int) {
    if (sound.beeps.size() == 2 && ++pumps == 50) Press("cmdControl(4)");
  };
  Press("cmdControl(4)");
  EXPECT_THAT(sound.beeps, SizeIs(3));
  EXPECT_GE(pumps, 50);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(MainWindowPlay, LightCommandsChangeThePicture) {
  EXPECT_EQ(Picture(), 0);
  for (const auto& [command, picture] : {std::pair{0, 2}, {4, 3}, {1, 1}, {5, 0}}) {
    Press("cmdControl(0)");
    Press(IndexedName("cmdInsert", command));
    Press("cmdControl(4)");
    EXPECT_EQ(Picture(), picture) << command;
  }
}

TEST_F(MainWindowPlay, VibrationMovesThePicturesTogetherInsideTheirSquare) {
  Press("cmdInsert(2)");
  Press("cmdControl(4)");
  QSet<QPair<int, int>> spots;
  const QPoint area = Get<QWidget>("ImageMS(0)").parentWidget()->rect().topLeft();
  for (int i = 0; i < 12; ++i) {
    QTest::qWait(60);
    const QPoint spot = Get<QWidget>("ImageMS(0)").pos() - area;
    spots.insert({spot.x(), spot.y()});
    for (int k = 1; k < 4; ++k) EXPECT_EQ(Get<QWidget>(IndexedName("ImageMS", k)).pos() - area, spot);
    EXPECT_TRUE(QRect(0, 0, 81, 81).contains(spot)) << spot.x() << "," << spot.y();
  }
  EXPECT_GT(spots.size(), 3);
  Press("cmdControl(0)");
  Press("cmdInsert(3)");
  Press("cmdControl(4)");
  const QPoint still = Get<QWidget>("ImageMS(0)").pos();
  QTest::qWait(250);
  EXPECT_EQ(Get<QWidget>("ImageMS(0)").pos(), still);
}

TEST_F(MainWindowPlay, TheOutputMenuMovesItsCheckMark) {
  Enter("a");
  for (int i : {0, 2, 1}) {
    Trigger(IndexedName("mnuSettingOutputType", i));
    for (int k = 0; k < 3; ++k) EXPECT_EQ(Action(IndexedName("mnuSettingOutputType", k)).isChecked(), k == i);
    sound.beeps.clear();
    sound.lines.clear();
    Press("cmdControl(4)");
    EXPECT_EQ(sound.beeps.size(), i == 1 ? 1U : 0U);
    EXPECT_EQ(sound.lines.empty(), i == 2);
  }
}

// The same window over the real event pump and the real time.
class MainWindowClosing : public testing::Test, public MainWindowParts {
 protected:
  MainWindowClosing() { window.Load(); }

  QtPump qtPump;
  Workspace workspace{log, qtPump};
  StdClock realClock;
  frmMain window{{workspace, realClock, sound, settings, files, questions}};
};

TEST_F(MainWindowClosing, ClosingEndsPlayPauseAndEveryWait) {
  QObject::connect(&window, &frmMain::Closed, &window, [this] { qtPump.End(); });
  window.show();
  MelodyNote pause;
  pause.Note = "r";
  pause.Duration = 4;
  pause.DurationExtra = 1;
  workspace.melody.Assign(MelodyList(1000, pause));
  QElapsedTimer time;
  time.start();
  // Each element waits for 2.4 seconds. Inside its wait Pause is pressed, then the window closed.
  QTimer pauses;
  QObject::connect(&pauses, &QTimer::timeout, &window, [this] { Click(window, "cmdControl(2)"); });
  pauses.start(50);
  QTimer closes;
  QObject::connect(&closes, &QTimer::timeout, &window, [this] { window.close(); });
  closes.start(120);
  Click(window, "cmdControl(4)");
  EXPECT_LT(time.elapsed(), 1000);
  EXPECT_FALSE(qtPump.PumpEvents());
  window.Unload();
  EXPECT_EQ(log.lines.back(), "1: Application ended");
  EXPECT_THAT(log.lines, Not(Contains("1: Done Playing")));
}

}  // namespace
}  // namespace trillomat
