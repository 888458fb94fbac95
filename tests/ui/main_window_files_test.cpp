// Start and end of the program, settings, files, import and export in the main window.
#include <gmock/gmock.h>

#include <QPlainTextEdit>
#include <QTimer>

#include "ui/main_window.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

/// An I-Melody file with these notes.
std::string Tune(const std::string& notes) {
  return "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Tune\r\nCOMPOSER:Me\r\nBEAT:120\r\n"
         "STYLE:S2\r\nVOLUME:V7\r\nMELODY:" +
         notes + "\r\nEND:IMELODY\r\n";
}

TEST(MainWindowStart, FirstStartTakesTheDefaultsAndLogsTheSequence) {
  MainWindowParts parts;
  frmMain window({parts.ws, parts.clock, parts.sound, parts.settings, parts.files, parts.questions});
  EXPECT_TRUE(window.Load());
  EXPECT_THAT(parts.log.lines, ElementsAre("1: Application started", "1: Version:4.7.11",
                                           "1: #############Cleaning up registry##############"));
  EXPECT_EQ(Control<QSlider>(window, "SliderOctave").value(), 4);
  EXPECT_TRUE(Control<QRadioButton>(window, "optDuration(4)").isChecked());
  EXPECT_TRUE(Control<QRadioButton>(window, "optDurationExtra(0)").isChecked());
  for (const char* item : {"mnuSettingFormatType(0)", "mnuSettingOutputType(1)", "mnuSettingAutoPlay",
                           "mnuSettingPlayComposing", "mnuSettingPlayMoving"}) {
    EXPECT_TRUE(window.findChild<QAction*>(item)->isChecked()) << item;
  }
  window.Unload();
  EXPECT_EQ(parts.log.lines.back(), "1: Application ended");
}

TEST(MainWindowStart, WhatWasChosenComesBackAtTheNextStart) {
  MainWindowParts parts;
  parts.folder.MakeFolder("tunes");
  {
    frmMain window({parts.ws, parts.clock, parts.sound, parts.settings, parts.files, parts.questions});
    window.Load();
    window.findChild<QAction*>("mnuSettingFormatType(2)")->trigger();
    window.findChild<QAction*>("mnuSettingOutputType(0)")->trigger();
    window.findChild<QAction*>("mnuSettingAutoPlay")->trigger();
    window.findChild<QAction*>("mnuSettingPlayMoving")->trigger();
    Control<QSlider>(window, "SliderOctave").setValue(6);
    Click(window, "optDuration(3)");
    Click(window, "optDurationExtra(1)");
    window.Unload();
  }
  EXPECT_EQ(parts.settings.values["Settings/Scale"], "6");
  EXPECT_EQ(parts.settings.values["Path/BrowseFolder"], "c:\\");
  frmMain window({parts.ws, parts.clock, parts.sound, parts.settings, parts.files, parts.questions});
  window.Load();
  EXPECT_EQ(parts.ws.iNoteMode, FormatMode::Rtttl);
  EXPECT_TRUE(window.findChild<QAction*>("mnuSettingOutputType(0)")->isChecked());
  EXPECT_FALSE(window.findChild<QAction*>("mnuSettingAutoPlay")->isChecked());
  EXPECT_TRUE(window.findChild<QAction*>("mnuSettingPlayComposing")->isChecked());
  EXPECT_FALSE(window.findChild<QAction*>("mnuSettingPlayMoving")->isChecked());
  EXPECT_TRUE(Control<QRadioButton>(window, "optDuration(3)").isChecked());
  EXPECT_TRUE(Control<QRadioButton>(window, "optDurationExtra(1)").isChecked());
}

TEST(MainWindowStart, ADurationThatTheModeLacksLeavesTheModesOwn) {
  MainWindowParts parts;
  parts.settings.values = {{"Version/Counter", "2"},
                           {"Settings/Mode", "3"},
                           {"Settings/Duration", "5"},
                           {"Settings/DurationExtra", "2"},
                           {"Settings/Scale", "8"}};
  frmMain window({parts.ws, parts.clock, parts.sound, parts.settings, parts.files, parts.questions});
  window.Load();
  EXPECT_TRUE(Control<QRadioButton>(window, "optDuration(3)").isChecked());
  EXPECT_TRUE(Control<QRadioButton>(window, "optDurationExtra(0)").isChecked());
  EXPECT_EQ(Control<QSlider>(window, "SliderOctave").value(), 4);
}

TEST(MainWindowStart, WithoutDrivesTheProgramEndsAtOnce) {
  class NoDrives : public FolderStore {
   public:
    using FolderStore::FolderStore;
    uint32_t GetLogicalDrives() override { return 0; }
  };
  MainWindowParts parts;
  NoDrives files{parts.folder.Path()};
  frmMain window({parts.ws, parts.clock, parts.sound, parts.settings, files, parts.questions});
  EXPECT_FALSE(window.Load());
  EXPECT_EQ(parts.log.lines.back(), "1: Failed to get drivelist-> End program");
}

class MainWindowFiles : public MainWindowTest {
 protected:
  MainWindowFiles() {
    SetToggle("mnuSettingAutoPlay", false);
    folder.Write("a.imy", Tune("c2d2"));
    folder.Write("b.imy", Tune("e2"));
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

TEST_F(MainWindowFiles, AClickOpensAFileAndSaveWritesOverIt) {
  EXPECT_EQ(Rows(), QStringList({"[sub]", "a.imy", "b.imy"}));
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
  ClickRow("a.imy");
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "Tune");
  EXPECT_EQ(Text("txtSongInfo(4)"), "120");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S2: Staccato Style");
  EXPECT_TRUE(Get<QWidget>("cmdSave").isEnabled());
  Press("cmdEraseRight");
  Press("cmdSave");
  EXPECT_THAT(folder.Read("a.imy"), testing::HasSubstr("MELODY:d2"));
  EXPECT_EQ(Get<QPushButton>("cmdSave").text().remove('&'), "Save");
  ClickRow("[sub]");
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
}

TEST_F(MainWindowFiles, TheSelectedRowIsTheOneThatSaveWritesOver) {
  ClickRow("a.imy");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(list.selectedItems().value(0)->text(), "a.imy");
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(list.selectedItems().value(0)->text(), "b.imy");
  EXPECT_EQ(Shown(), "|*4e2");
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

TEST_F(MainWindowFiles, AFileOfTheCommandLineBringsItsModeAndFolder) {
  window.OpenFile(folder / "c.rtx");
  EXPECT_EQ(ws.iNoteMode, FormatMode::Rtttl);
  EXPECT_TRUE(Action("mnuSettingFormatType(2)").isChecked());
  EXPECT_EQ(Shown(), "|4C5 4P 4H5");
  EXPECT_EQ(Rows(), QStringList({"[sub]", "c.rtx"}));
  SetToggle("mnuSettingAutoPlay", true);
  window.OpenFile(folder / "a.imy");
  EXPECT_EQ(sound.beeps.size(), 2U);
  sound.beeps.clear();
  window.OpenFile(folder / "a.imy", false);
  EXPECT_EQ(sound.beeps.size(), 0U);
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
  Press("cmdSaveAs");
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to save"));
  Enter("c");
  questions.savePath = folder / "new";
  Press("cmdSaveAs");
  EXPECT_TRUE(Rows().contains("new.imy"));
  const std::string old = folder.Read("a.imy");
  questions.savePath = folder / "a.imy";
  questions.yes = false;
  Press("cmdSaveAs");
  EXPECT_EQ(folder.Read("a.imy"), old);
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
