// Start and end of the program, settings, files, import and export in the main window.
#include <QPlainTextEdit>
#include <QTimer>

#include "ui/main_window.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

class MainWindowStart : public testing::Test, public MainWindowParts {
 protected:
  frmMain window{{ws, clock, sound, settings, files, questions}};

  /// Which of these menu items and options are not checked.
  std::string Unchecked(const std::vector<const char*>& names) const {
    std::string unchecked;
    for (const char* name : names) {
      if (!Control<QObject>(window, name).property("checked").toBool()) unchecked += std::string(name) + " ";
    }
    return unchecked;
  }
};

TEST_F(MainWindowStart, FirstStartTakesTheDefaultsAndLogsTheSequence) {
  EXPECT_TRUE(window.Load());
  EXPECT_THAT(log.lines, ElementsAre("1: Application started", "1: Version:4.7.11",
                                     "1: #############Cleaning up registry##############"));
  EXPECT_EQ(Control<QSlider>(window, "SliderOctave").value(), 4);
  EXPECT_EQ(Unchecked({"optDuration(4)", "optDurationExtra(0)", "mnuSettingFormatType(0)",
                       "mnuSettingOutputType(1)", "mnuSettingAutoPlay", "mnuSettingPlayComposing",
                       "mnuSettingPlayMoving"}),
            "");
  window.Unload();
  EXPECT_EQ(log.lines.back(), "1: Application ended");
}

TEST_F(MainWindowStart, WhatWasChosenComesBackAtTheNextStart) {
  {
    frmMain first({ws, clock, sound, settings, files, questions});
    first.Load();
    for (const char* item :
         {"mnuSettingFormatType(2)", "mnuSettingOutputType(0)", "mnuSettingAutoPlay", "mnuSettingPlayMoving"})
      first.findChild<QAction*>(item)->trigger();
    Control<QSlider>(first, "SliderOctave").setValue(6);
    Click(first, "optDuration(3)");
    Click(first, "optDurationExtra(1)");
    first.Unload();
  }
  EXPECT_EQ(settings.values["Path/BrowseFolder"], "c:\\");
  window.Load();
  EXPECT_EQ(ws.iNoteMode, FormatMode::Rtttl);
  EXPECT_EQ(Control<QSlider>(window, "SliderOctave").value(), 6);
  EXPECT_EQ(Unchecked({"mnuSettingOutputType(0)", "mnuSettingAutoPlay", "mnuSettingPlayComposing",
                       "mnuSettingPlayMoving", "optDuration(3)", "optDurationExtra(1)"}),
            "mnuSettingAutoPlay mnuSettingPlayMoving ");
}

TEST_F(MainWindowStart, ADurationThatTheModeLacksLeavesTheModesOwn) {
  settings.values = {{"Version/Counter", "2"},
                     {"Settings/Mode", "3"},
                     {"Settings/Duration", "5"},
                     {"Settings/DurationExtra", "2"},
                     {"Settings/Scale", "8"}};
  window.Load();
  EXPECT_EQ(Unchecked({"optDuration(3)", "optDurationExtra(0)"}), "");
  EXPECT_EQ(Control<QSlider>(window, "SliderOctave").value(), 4);
}

TEST_F(MainWindowStart, WithoutDrivesTheProgramEndsAtOnce) {
  class NoDrives : public FolderStore {
   public:
    using FolderStore::FolderStore;
    uint32_t GetLogicalDrives() override { return 0; }
  };
  NoDrives none{folder.Path()};
  frmMain driveless({ws, clock, sound, settings, none, questions});
  EXPECT_FALSE(driveless.Load());
  EXPECT_EQ(log.lines.back(), "1: Failed to get drivelist-> End program");
}

class MainWindowFiles : public MainWindowTest {
 protected:
  MainWindowFiles() {
    SetToggle("mnuSettingAutoPlay", false);
    folder.Write("a.imy", TuneText("c2d2"));
    folder.Write("b.imy", TuneText("e2"));
    folder.Write("c.rtx", "tune:d=4,o=5,b=100:c,p,b");
    folder.MakeFolder("sub");
    SetMode(FormatMode::IMelody);
    log.lines.clear();
  }
  QStringList Rows() {
    QStringList rows;
    for (int i = 0; i < list.count(); ++i) rows << list.item(i)->text();
    return rows;
  }
  void ClickRow(const QString& text, Qt::MouseButton button = Qt::LeftButton) {
    const QRect place = list.visualItemRect(list.findItems(text, Qt::MatchExactly).value(0));
    QTest::mouseClick(list.viewport(), button, {}, place.center());
  }

  QListWidget& list = Get<QListWidget>("ListFiles");
};

TEST_F(MainWindowFiles, AFileOpensByClickOrKeyAndSaveWritesOverIt) {
  EXPECT_EQ(Rows(), QStringList({"[sub]", "a.imy", "b.imy"}));
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
  ClickRow("a.imy");
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "Tune");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S2: Staccato Style");
  EXPECT_TRUE(Get<QWidget>("cmdSave").isEnabled());
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(list.selectedItems().value(0)->text(), "a.imy") << "Save writes over the opened file";
  Press("cmdEraseRight");
  Press("cmdSave");
  EXPECT_THAT(folder.Read("a.imy"), testing::HasSubstr("MELODY:d2"));
  EXPECT_EQ(Get<QPushButton>("cmdSave").text().remove('&'), "Save");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(list.selectedItems().value(0)->text(), "b.imy");
  EXPECT_EQ(Shown(), "|*4e2");
  ClickRow("[sub]");
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
}

TEST_F(MainWindowFiles, FoldersAreEnteredAndTheMenuDeletes) {
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(0)).center());
  EXPECT_EQ(Rows(), QStringList({"[Previous]"}));
  EXPECT_EQ(Get<QLabel>("lblFolder").text(), "c:\\sub\\");
  list.setFocus();
  list.setCurrentRow(0);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(Rows().size(), 3);
  ClickRow("b.imy", Qt::RightButton);
  EXPECT_TRUE(Get<QMenu>("mnuRight").isVisible());
  Trigger("mnuDelete");
  EXPECT_EQ(Rows(), QStringList({"[sub]", "a.imy"}));
}

TEST_F(MainWindowFiles, AFileOfTheCommandLineBringsItsModeAndPlaysOnDemand) {
  window.OpenFile(folder / "c.rtx");
  EXPECT_TRUE(Action("mnuSettingFormatType(2)").isChecked());
  EXPECT_EQ(Shown(), "|4C5 4P 4H5");
  EXPECT_EQ(Rows(), QStringList({"[sub]", "c.rtx"}));
  SetToggle("mnuSettingAutoPlay", true);
  for (const bool play : {true, false}) {
    sound.beeps.clear();
    window.OpenFile(folder / "a.imy", play);
    EXPECT_EQ(sound.beeps.size(), play ? 2U : 0U);
  }
  EXPECT_TRUE(Action("mnuSettingAutoPlay").isChecked());
}

TEST_F(MainWindowFiles, AClickDuringAToneWaitsForTheTimer) {
  Enter("a");
  sound.onBeep = [this] {
    sound.onBeep = nullptr;
    ClickRow("b.imy");
    EXPECT_EQ(ws.melody.UpperBound(), 1);
  };
  Enter("b");
  EXPECT_TRUE(QTest::qWaitFor([this] { return Shown() == "|*4e2"; }, 2000)) << Shown();
}

TEST_F(MainWindowFiles, WhileAFileIsReadNoOtherFileOperationStarts) {
  Enter("c");
  QTimer closes;  // a window that opens all the same
  int opened = 0;
  QObject::connect(&closes, &QTimer::timeout, &window, [&opened] {
    if (QApplication::activeModalWidget() != nullptr) opened += QApplication::activeModalWidget()->close();
  });
  closes.start(0);
  bool acted = false;
  pump.onPump = [&](int) {
    if (std::exchange(acted, true)) return;
    for (const char* button : {"cmdSaveAs", "cmdImport", "cmdExport"}) Press(button);
    Trigger("mnuFileRecover");
    ClickRow("b.imy");
  };
  ClickRow("a.imy");
  EXPECT_EQ(questions.saveDialogs + opened, 0);
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
}

TEST_F(MainWindowFiles, SaveAsAsksAndListsTheNewFile) {
  Enter("c");
  questions.savePath = folder / "new";
  Press("cmdSaveAs");
  EXPECT_TRUE(Rows().contains("new.imy"));
  questions.savePath = folder / "a.imy";
  questions.yes = false;
  Press("cmdSaveAs");
  EXPECT_EQ(folder.Read("a.imy"), TuneText("c2d2"));
}

TEST_F(MainWindowFiles, ImportReplacesTheMelodyAndExportNeedsOne) {
  Press("cmdExport");
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to export"));
  QTimer answers;
  answers.setSingleShot(true);
  const auto pastes = QObject::connect(&answers, &QTimer::timeout, &window, [] {
    auto* dialog = QApplication::activeModalWidget();
    dialog->findChild<QPlainTextEdit*>("txtSource")->setPlainText("tune:d=4,o=5,b=100:c,p,b");
    dialog->findChild<QPushButton*>("cmdImport")->click();
  });
  answers.start(0);
  Press("cmdImport");
  EXPECT_EQ(Shown(), "|*3c2 r2 *3b2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "tune");
  QObject::disconnect(pastes);
  bool shown = false;
  QObject::connect(&answers, &QTimer::timeout, &window,
                   [&shown] { shown = QApplication::activeModalWidget()->close(); });
  answers.start(0);
  Press("cmdExport");
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace trillomat
