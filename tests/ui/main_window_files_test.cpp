// Start and end of the program, settings, files, import, recovery and what is said of them in the window.
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTimer>
#include <QUrl>

#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class MainWindowStart : public testing::Test, public Parts {
 protected:
  MainWindow window{ForWindow()};

  /// Which of these menu items and options are not checked.
  std::string Unchecked(const std::vector<const char*>& names) const {
    std::string unchecked;
    for (const char* name : names) {
      if (!Find<QObject>(window, name).property("checked").toBool()) unchecked += std::string(name) + " ";
    }
    return unchecked;
  }
};

TEST_F(MainWindowStart, FirstStartTakesTheDefaultsAndLogsTheSequence) {
  EXPECT_TRUE(window.Load());
  EXPECT_THAT(log.lines, ElementsAre("1: Application started", "1: Version:4.7.11",
                                     "1: #############Cleaning up registry##############"));
  EXPECT_EQ(Find<QSlider>(window, "SliderOctave").value(), 4);
  EXPECT_EQ(Unchecked({"optDuration(4)", "optDurationExtra(0)", "mnuSettingFormatType(0)",
                       "mnuSettingOutputType(1)", "mnuSettingAutoPlay", "mnuSettingPlayComposing",
                       "mnuSettingPlayMoving"}),
            "");
  window.Unload();
  EXPECT_EQ(log.lines.back(), "1: Application ended");
}

TEST_F(MainWindowStart, WhatWasChosenComesBackAtTheNextStart) {
  {
    Document other;
    WindowParts parts = ForWindow();
    MainWindow first({other, record, services, clock, sound, settings, files, questions});
    first.Load();
    for (const char* item :
         {"mnuSettingFormatType(2)", "mnuSettingOutputType(0)", "mnuSettingAutoPlay", "mnuSettingPlayMoving"})
      first.findChild<QAction*>(item)->trigger();
    Find<QSlider>(first, "SliderOctave").setValue(6);
    Click(first, "optDuration(3)");
    Click(first, "optDurationExtra(1)");
    first.Unload();
  }
  EXPECT_EQ(settings.values["Path/BrowseFolder"], "c:\\");
  window.Load();
  EXPECT_EQ(document.Mode(), FormatMode::Rtttl);
  EXPECT_EQ(Find<QSlider>(window, "SliderOctave").value(), 6);
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
  EXPECT_EQ(Find<QSlider>(window, "SliderOctave").value(), 4);
}

TEST_F(MainWindowStart, WithoutDrivesTheProgramEndsAtOnce) {
  class NoDrives : public FolderStore {
   public:
    using FolderStore::FolderStore;
    uint32_t Drives() override { return 0; }
  };
  NoDrives none{folder.Path()};
  MainWindow driveless({document, record, services, clock, sound, settings, none, questions});
  EXPECT_FALSE(driveless.Load());
  EXPECT_EQ(log.lines.back(), "1: Failed to get drivelist-> End program");
}

class MainWindowFiles : public MainWindowTest {
 protected:
  MainWindowFiles() {
    SetToggle("mnuSettingAutoPlay", false);
    folder.Write("a.imy", Tune("c2d2"));
    folder.Write("b.imy", Tune("e2"));
    folder.Write("bad.imy", kRefusedTune);
    folder.Write("c.rtx", "tune:d=4,o=5,b=100:c,p,b");
    folder.MakeFolder("sub");
    SetMode(FormatMode::IMelody);
    log.lines.clear();
  }
  /// Opens the import window and leaves it by the button after `text` was pasted there.
  void Import(const QString& text, const char* button = "cmdImport") {
    QTimer::singleShot(0, &window, [=] {
      auto* dialog = QApplication::activeModalWidget();
      dialog->findChild<QPlainTextEdit*>("txtSource")->setPlainText(text);
      dialog->findChild<QPushButton*>(button)->click();
    });
    Press("cmdImport");
  }
  std::string SavedAs(const char* name) {
    questions.savePath = folder / name;
    Press("cmdSaveAs");
    return folder.Read(name);
  }
};

TEST_F(MainWindowFiles, AFileOpensByClickOrKeyAndSaveWritesOverIt) {
  EXPECT_EQ(Rows(), "[sub] a.imy b.imy bad.imy");
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
  ClickRow("a.imy");
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "Tune");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S2: Staccato Style");
  EXPECT_TRUE(Get<QWidget>("cmdSave").isEnabled());
  EXPECT_EQ(window.focusWidget(), &List());
  PressKey(Qt::Key_Down);
  EXPECT_EQ(List().currentItem()->text(), "b.imy");
  EXPECT_EQ(SelectedRow(), "a.imy") << "Save writes over the opened file";
  for (const Qt::Key harmless : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Left}) PressKey(harmless);
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  Press("cmdEraseRight");
  Press("cmdSave");
  EXPECT_THAT(folder.Read("a.imy"), HasSubstr("MELODY:d2"));
  EXPECT_EQ(Get<QPushButton>("cmdSave").text().remove('&'), "Save");
  PressKey(Qt::Key_Return);
  EXPECT_EQ(SelectedRow(), "b.imy");
  EXPECT_EQ(Shown(), "|*4e2");
  PressKey(Qt::Key_Escape);
  EXPECT_EQ(window.focusWidget(), &Get<QWidget>("txtRight"));
  ClickRow("[sub]");
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
}

TEST_F(MainWindowFiles, FoldersAreEnteredAndTheMenuDeletes) {
  DoubleClickRow("[sub]");
  EXPECT_EQ(Rows(), "[Previous]");
  EXPECT_EQ(Get<QLabel>("lblFolder").text(), "c:\\sub\\");
  List().setFocus();
  List().setCurrentRow(0);
  PressKey(Qt::Key_Return);
  ClickRow("b.imy", Qt::RightButton);
  EXPECT_TRUE(Get<QMenu>("mnuRight").isVisible());
  Get<QMenu>("mnuRight").close();
  Trigger("mnuDelete");
  EXPECT_EQ(Rows(), "[sub] a.imy bad.imy");
}

TEST_F(MainWindowFiles, AFileOfTheCommandLineBringsItsModeAndPlaysOnDemand) {
  window.OpenFile(folder / "c.rtx");
  EXPECT_TRUE(Action("mnuSettingFormatType(2)").isChecked());
  EXPECT_EQ(Shown(), "|4C5 4P 4H5");
  EXPECT_EQ(Rows(), "[sub] c.rtx");
  SetToggle("mnuSettingAutoPlay", true);
  for (const bool play : {true, false}) {
    sound.beeps.clear();
    window.OpenFile(folder / "a.imy", play);
    EXPECT_EQ(sound.beeps.size(), play ? 2U : 0U);
  }
  EXPECT_TRUE(Action("mnuSettingAutoPlay").isChecked());
}

TEST_F(MainWindowFiles, ADoubleClickPlaysAFileOnce) {
  SetToggle("mnuSettingAutoPlay", true);
  DoubleClickRow("a.imy");
  EXPECT_EQ(sound.beeps.size(), 2U);
  SetOutput(OutputType::Wave);
  sound.lines.clear();
  bool pressed = false;  // the second press arrives while the first tone sounds
  pump.onPump = [&](int) {
    if (std::exchange(pressed, true)) return;
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, PlaceOf("b.imy"));
  };
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, PlaceOf("b.imy"));
  pump.onPump = nullptr;
  QTest::qWait(300);
  EXPECT_EQ(std::count_if(sound.lines.begin(), sound.lines.end(),
                          [](const std::string& line) { return line.starts_with("start"); }),
            1);
}

TEST_F(MainWindowFiles, AClickDuringAToneWaitsForItAndForTheOperationThatRuns) {
  Enter("a");
  SetOutput(OutputType::Wave);
  bool clicked = false;
  pump.onPump = [&](int) {
    if (!std::exchange(clicked, true)) ClickRow("b.imy");
  };
  Enter("b");
  pump.onPump = nullptr;
  questions.whileAsking = [this] {
    QTest::qWait(500);
    EXPECT_EQ(document.Elements().size(), 2U);
  };
  EXPECT_THAT(SavedAs("new.imy"), HasSubstr("MELODY:a4b4"));
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
    for (const char* item : {"mnuFileRecover", "mnuDelete", "mnuRename"}) Trigger(item);
    ClickRow("b.imy");
  };
  ClickRow("a.imy");
  EXPECT_EQ(questions.saveDialogs + opened, 0);
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
}

TEST_F(MainWindowFiles, WhatIsSavedIsWhatThePanelShowsWhateverWasRefused) {
  Enter("c");
  Get<QLineEdit>("txtSongInfo(2)").setText("Mine");
  Get<QLineEdit>("txtSongInfo(4)").setText("150");
  const SongInfo mine = document.Info();
  ClickRow("bad.imy");
  EXPECT_EQ(NoticeText().left(12), "Not opened: ");
  Import("name:d=4,b=200");
  EXPECT_EQ(NoticeText().left(14), "Not imported: ");
  const ReadRecord before = record;
  bool cancelled = false;
  pump.onPump = [&](int) {
    if (!std::exchange(cancelled, true)) QApplication::activeModalWidget()->close();
  };
  Import("other:d=4,b=250:c,d");
  pump.onPump = nullptr;
  EXPECT_TRUE(cancelled);
  EXPECT_EQ(record, before);
  EXPECT_EQ(document.Info(), mine);
  EXPECT_EQ(Text("txtSongInfo(2)"), "Mine");
  EXPECT_EQ(Text("txtSongInfo(4)"), "150");
  EXPECT_THAT(SavedAs("mine.imy"), HasSubstr("NAME:Mine\r\nCOMPOSER:\r\nBEAT:150\r\nSTYLE:S0\r\nVOLUME:V10"));
}

TEST_F(MainWindowFiles, TheSelectedRowIsWhatCtrlSOverwritesAndWithoutOneItIsSaveAs) {
  Enter("c");
  questions.savePath = folder / "new.imy";
  PressKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(questions.saveDialogs, 1);
  EXPECT_EQ(SelectedRow(), "new.imy");
  EXPECT_TRUE(Get<QWidget>("cmdSave").isEnabled());
  ClickRow("a.imy");
  questions.savePath = folder / "other.imy";
  PressKey(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(SelectedRow(), "other.imy");
  Press("cmdEraseRight");
  PressKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(questions.saveDialogs, 2);
  EXPECT_EQ(folder.Read("a.imy"), Tune("c2d2"));
  EXPECT_THAT(folder.Read("other.imy"), HasSubstr("MELODY:d2"));
  questions.savePath = folder / "b.imy";
  questions.yes = false;
  Press("cmdSaveAs");
  EXPECT_EQ(folder.Read("b.imy"), Tune("e2"));
  Import("tune:d=4,o=5,b=100:c,p,b");
  EXPECT_EQ(Shown(), "|*3c2 r2 *3b2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "tune");
  EXPECT_EQ(SelectedRow(), "");
}

TEST_F(MainWindowFiles, WhatWasNotDoneIsSaidBesideTheListUntilSomethingIsOpened) {
  EXPECT_EQ(NoticeText(), "");
  window.OpenFile(folder / "bad.imy");
  EXPECT_EQ(NoticeText().toStdString(), "Not opened: line 4 has no \":\": \"no colon\"");
  window.OpenFile(folder / "a.imy");
  EXPECT_EQ(NoticeText(), "");
  window.OpenFile(folder / "<b>nosuch.imy");
  EXPECT_THAT(NoticeText().toStdString(), HasSubstr("<b>nosuch.imy"));
  EXPECT_EQ(Get<QLabel>("lblNotice").textFormat(), Qt::PlainText);
  for (const char* name : {"a", "x/y"}) {
    window.OpenFile(folder / "b.imy");
    QTimer::singleShot(0, &window, [name] {
      auto* dialog = QApplication::activeModalWidget();
      dialog->findChild<QLineEdit*>("txtName")->setText(name);
      dialog->findChild<QPushButton*>("cmdOK")->click();
    });
    Trigger("mnuRename");
    EXPECT_NE(NoticeText(), "") << name;
    EXPECT_EQ(folder.Read("b.imy"), Tune("e2"));
  }
}

TEST_F(MainWindowFiles, AnEmptyMelodyIsNotExported) {
  Press("cmdExport");
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to export"));
  Enter("c");
  bool shown = false;
  QTimer::singleShot(0, &window, [&shown] { shown = QApplication::activeModalWidget()->close(); });
  Press("cmdExport");
  EXPECT_TRUE(shown);
}

TEST_F(MainWindowFiles, ADroppedFileOpensAndOtherThingsAreRefused) {
  folder.Write("dropped.mel", "+C");
  QMimeData text;
  text.setText("c2");
  QMimeData file;
  file.setUrls({QUrl::fromLocalFile(QString::fromStdString((folder / "dropped.mel").string()))});
  for (const QMimeData* data : {&text, &file}) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), data == &file);
  }
  QDropEvent drop({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QTest::qWait(10);
  EXPECT_EQ(document.Mode(), FormatMode::Melody);
  EXPECT_EQ(Shown(), "|+C");
}

/// One run of the program, with its state kept in `state`.
class ProgramRun : public Parts {
 public:
  explicit ProgramRun(const TempFolder& state) : window(ForWindow(state.Path())) {
    window.Load();
    window.show();
  }
  /// Enters a tone and leaves the timer the time to write it down.
  void EnterTone(int key) {
    Click(window, IndexedName("cmdTone", key));
    QTest::qWait(Recovery::kTickInterval + 200);
  }
  std::string Shown() const { return ShownIn(window); }
  void Recover() { window.findChild<QAction*>("mnuFileRecover")->trigger(); }

  MainWindow window;
};

TEST(MainWindowRecovery, AMelodyComesBackAfterAnAbnormalEndAndLaterOnDemandAlone) {
  const TempFolder state;
  {
    ProgramRun killed(state);
    Find<QLineEdit>(killed.window, "txtSongInfo(2)").setText("Unsaved");
    killed.EnterTone(0);
  }  // without Unload, as a crash leaves it
  {
    ProgramRun declined(state);
    declined.questions.yes = false;
    declined.window.OfferRecovery();
    EXPECT_EQ(declined.Shown(), "|");
    declined.Recover();
    EXPECT_EQ(declined.Shown(), "|*4c4");
    EXPECT_EQ(declined.document.Info().name, "Unsaved");
    QTest::qWait(Recovery::kTickInterval + 200);
  }
  ProgramRun accepted(state);
  accepted.window.OfferRecovery();
  EXPECT_EQ(accepted.Shown(), "|*4c4");
  accepted.EnterTone(2);
  Click(accepted.window, "cmdControl(0)");
  EXPECT_EQ(accepted.Shown(), "|");
  accepted.Recover();
  EXPECT_EQ(accepted.Shown(), "|*4d4 *4c4");
}

}  // namespace
}  // namespace trillomat
