// The play controls, the phone, what is locked while a melody plays, and what is seen while a tone sounds.
#include <QBackingStore>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QMimeData>
#include <QSet>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include "platform/clock_std.h"
#include "platform/pump_qt.h"
#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::SizeIs;

const char* const kLocked =
    "cmdControl(0) cmdControl(1) cmdControl(5) cmdDuration cmdEraseLeft cmdEraseRight cmdExport cmdImport "
    "cmdInsert(0) cmdInsert(1) cmdInsert(10) cmdInsert(2) cmdInsert(3) cmdInsert(4) cmdInsert(5) "
    "cmdInsert(6) cmdInsert(7) cmdInsert(8) cmdInsert(9) cmdLeft cmdLowHigh cmdPause cmdRight cmdSave "
    "cmdSaveAs cmdScaleDown cmdScaleUP cmdTone(0) cmdTone(1) cmdTone(10) cmdTone(11) cmdTone(2) cmdTone(3) "
    "cmdTone(4) cmdTone(5) cmdTone(6) cmdTone(7) cmdTone(8) cmdTone(9)";

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
  /// The buttons, options, lists and text boxes that are locked.
  std::string Disabled() {
    QStringList names;
    for (const auto* control :
         window.findChildren<QWidget*>(QRegularExpression("^(cmd|opt|cbo|txt[LR]|List)"))) {
      if (!control->isEnabled()) names << control->objectName();
    }
    names.sort();
    return names.join(' ').toStdString();
  }
  std::vector<QAction*> LockedMenus() {
    return {Get<QMenu>("mnuFile").menuAction(), Get<QMenu>("mnuSetting").menuAction(), &Action("mnuAbout")};
  }
  QRect Phone() { return Get<QWidget>("ImageMS(0)").geometry(); }
  /// True when what the window system was given of a control is what the control would draw now.
  bool IsPainted(const char* name) {
    const auto& control = Get<QWidget>(name);
    const QRect place = QRect(control.mapTo(&window, QPoint()), control.size()) & window.rect();
    const auto& painted = dynamic_cast<const QImage&>(*window.backingStore()->paintDevice());
    const QImage now = window.grab(place).toImage();
    return painted.copy(place).convertToFormat(QImage::Format_RGB32) ==
           now.convertToFormat(QImage::Format_RGB32);
  }
};

TEST_F(MainWindowPlay, PlayWalksTheMelodyLockedAndUnlocksAtTheEnd) {
  Enter("aba");
  std::vector<std::string> shown;
  sound.onBeep = [&] {
    shown.push_back(Shown());
    EXPECT_EQ(PlayCaption(), "Playing");
    EXPECT_EQ(Disabled(), kLocked);
    for (const QAction* menu : LockedMenus()) EXPECT_FALSE(menu->isVisible());
    Press("cmdControl(4)");  // ignored: it plays already
  };
  Press("cmdControl(4)");
  EXPECT_THAT(shown, ElementsAre("*4a2|*4b2 *4a2", "*4a2 *4b2|*4a2", "*4a2 *4b2 *4a2|"));
  EXPECT_EQ(Get<QLabel>("lblFrequency").text().toInt(), sound.beeps.back());
  EXPECT_EQ(PlayCaption(), "Play");
  EXPECT_EQ(Disabled(), "cmdSave");
  for (const QAction* menu : LockedMenus()) EXPECT_TRUE(menu->isVisible());
  EXPECT_THAT(log.lines, ElementsAre("1: Done Playing"));
}

TEST_F(MainWindowPlay, NothingEditsAMelodyThatPlays) {
  Enter("aba");
  folder.Write("other.imy", Tune("c2"));
  QMimeData file;
  file.setUrls({QUrl::fromLocalFile(QString::fromStdString((folder / "other.imy").string()))});
  const ElementList before = document.Elements();
  sound.onBeep = [&] {
    for (const Qt::Key key : {Qt::Key_Z, Qt::Key_X, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left}) {
      PressKey(key);
    }
    PressKey(Qt::Key_S, Qt::ControlModifier);
    for (const char* item : {"mnuFileNew", "mnuSettingFormatType(2)", "mnuEditUndo", "mnuEditPaste",
                             "mnuEditDuplicate", "mnuEditSemitoneUp"}) {
      Trigger(item);
    }
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    QCoreApplication::processEvents();
    EXPECT_EQ(document.Elements(), before);
  };
  Press("cmdControl(4)");
  EXPECT_THAT(sound.beeps, SizeIs(3));
  EXPECT_EQ(questions.saveDialogs, 0);
  EXPECT_EQ(document.Mode(), FormatMode::IMelody);
}

TEST_F(MainWindowPlay, WhatChangedIsPaintedBeforeAToneThatLetsNoEventsRun) {
  SetToggle("mnuSettingPlayComposing", true);
  window.setWindowState(Qt::WindowNoState);
  window.resize(1024, 720);
  QTest::qWait(50);
  int tones = 0;
  sound.onBeep = [&] {
    ++tones;
    for (const char* name : {"txtLeft", "txtRight", "lblFrequency", "ImageMS(0)", "ImageMS(3)"}) {
      if (!Get<QWidget>(name).isVisible()) continue;
      EXPECT_TRUE(IsPainted(name)) << name << " at tone " << tones;
    }
  };
  Enter("ab");
  for (const char* command : {"cmdInsert(0)", "cmdInsert(4)"}) Press(command);
  Enter("c");
  for (const char* move : {"cmdLeft", "cmdLeft", "cmdLeft", "cmdRight"}) Press(move);
  Press("cmdControl(4)");
  EXPECT_EQ(tones, 7);
  EXPECT_EQ(Picture(), 3);
}

TEST_F(MainWindowPlay, ATypedLetterIsNeverDroppedWhileAToneSounds) {
  SetToggle("mnuSettingPlayComposing", true);
  SetOutput(OutputType::Wave);
  bool typed = false;
  pump.onPump = [&](int) {
    if (std::exchange(typed, true)) return;
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_C, Qt::Key_V}) PressKey(key);
    Press("cmdTone(11)");  // but a piano button is
  };
  PressKey(Qt::Key_Z);
  EXPECT_EQ(Shown(), "*4c2 *4d2 *4e2 *4f2|");
}

TEST_F(MainWindowPlay, LightsAndVibrationShowAndClearPutsThePhoneToRest) {
  const QRect rest = Phone();
  for (const auto& [command, picture] : {std::pair{0, 2}, {4, 3}, {1, 1}, {5, 0}, {0, 2}, {2, 2}}) {
    Press(IndexedName("cmdInsert", command));
    Press("cmdControl(4)");
    EXPECT_EQ(Picture(), picture) << command;
  }
  QSet<QPair<int, int>> spots;
  const QRect area = Get<QWidget>("ImageMS(0)").parentWidget()->rect();
  for (int i = 0; i < 12; ++i) {
    QTest::qWait(60);
    const QRect spot = Phone();
    spots.insert({spot.x(), spot.y()});
    for (int k = 1; k < 4; ++k) EXPECT_EQ(Get<QWidget>(IndexedName("ImageMS", k)).geometry(), spot);
    EXPECT_TRUE(area.contains(spot)) << spot.x() << "," << spot.y();
    EXPECT_EQ(spot.size(), rest.size());
  }
  EXPECT_GT(spots.size(), 3);
  Press("cmdControl(0)");
  QTest::qWait(250);
  EXPECT_EQ(Phone(), rest);
  EXPECT_EQ(Picture(), 0);
  EXPECT_EQ(Get<QLabel>("lblFrequency").text(), "0");
  for (const char* button : {"cmdInsert(2)", "cmdInsert(4)", "cmdControl(4)"}) Press(button);
  EXPECT_EQ(Picture(), 1) << "the lights were put out as well";
  folder.Write("a.imy", Tune("c2"));
  SetToggle("mnuSettingAutoPlay", false);
  window.OpenFile(folder / "a.imy");
  QTest::qWait(250);
  EXPECT_EQ(Phone(), rest);
  EXPECT_EQ(Picture(), 0);
}

// The same window over the real event pump and the real time.
class MainWindowInTime : public testing::Test {
 protected:
  MainWindowInTime() {
    window.Load();
    QObject::connect(&window, &MainWindow::Closed, &window, [this] { pump.End(); });
    window.show();
  }

  Parts parts;
  QtPump pump;
  const StdClock realClock;
  MainWindow window{{parts.document,
                     parts.record,
                     {parts.log, pump},
                     realClock,
                     parts.sound,
                     parts.settings,
                     parts.files,
                     parts.keeper,
                     parts.questions}};
};

TEST_F(MainWindowInTime, AFileThatPlaysAsSoonAsItIsReadCanBeStopped) {
  std::string notes;
  for (int i = 0; i < 100; ++i) notes += "c2";
  parts.folder.Write("a.imy", Tune(notes));
  // What a beep takes, without events; a click that waits since is handled before the next.
  parts.sound.onBeep = [this] {
    QThread::msleep(5);
    if (parts.sound.beeps.size() == 1) {
      QTimer::singleShot(0, &window, [this] { Click(window, "cmdControl(3)"); });
    }
  };
  window.OpenFile(parts.folder / "a.imy");
  EXPECT_EQ(parts.sound.beeps.size(), 1U);
}

TEST_F(MainWindowInTime, ClosingEndsPlayPauseAndEveryWait) {
  parts.document.Apply({.inserted = ElementList(1000, Rest(4))});
  QElapsedTimer time;
  time.start();
  // Each element waits for 2.4 seconds. Inside its wait Pause is pressed, then the window closed.
  QTimer::singleShot(50, &window, [this] { Click(window, "cmdControl(2)"); });
  QTimer::singleShot(120, &window, [this] { window.close(); });
  Click(window, "cmdControl(4)");
  EXPECT_LT(time.elapsed(), 1000);
  EXPECT_FALSE(pump.PumpEvents());
  window.Unload();
  EXPECT_EQ(parts.log.lines.back(), "1: Application ended");
  EXPECT_THAT(parts.log.lines, Not(Contains("1: Done Playing")));
}

TEST_F(MainWindowPlay, TheKeyThatSoundsIsLitBeforeItIsHeardAndDarkAfterwards) {
  const auto lit = [this](int tone) {
    const QImage key = Get<QWidget>(IndexedName("cmdTone", tone)).grab().toImage();
    const QColor face = window.palette().color(QPalette::Highlight);
    return key.pixelColor(key.width() / 2, key.height() / 10) == face;
  };
  Enter("Fa");
  std::vector<std::pair<bool, bool>> seen;
  sound.onBeep = [&] { seen.emplace_back(lit(6), lit(9)); };
  Press("cmdControl(4)");
  EXPECT_EQ(seen, (std::vector<std::pair<bool, bool>>{{true, false}, {false, true}}));
  EXPECT_FALSE(lit(6) || lit(9));
}

}  // namespace
}  // namespace trillomat
