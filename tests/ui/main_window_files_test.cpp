// Files, import, recovery and what is said of them in the window.
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

#include "exchange/midi_write.h"
#include "support/midi_bytes.h"
#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MainWindowFiles : public MainWindowTest {
 protected:
  MainWindowFiles() {
    answers_.setSingleShot(true);
    QObject::connect(&answers_, &QTimer::timeout, &window, [this] { answer_(); });
    SetToggle("mnuSettingAutoPlay", false);
    folder.Write("a.imy", Tune("c2d2"));
    folder.Write("b.imy", Tune("e2"));
    folder.Write("bad.imy", kRefusedTune);
    folder.Write("c.rtx", "tune:d=4,o=5,b=100:c,p,b");
    folder.MakeFolder("sub");
    SetMode(FormatMode::IMelody);
    log.lines.clear();
  }
  /// Fills in a text of the modal window that comes next, and presses a button of it.
  template <class Box>
  void Answer(const char* box, const QString& text, const char* button) {
    answer_ = [=] {
      const QWidget& dialog = *QApplication::activeModalWidget();
      Find<Box>(dialog, box).setProperty("plainText", text);
      Find<Box>(dialog, box).setProperty("text", text);
      Find<QPushButton>(dialog, button).click();
    };
    answers_.start(0);
  }
  void Import(const QString& text) {
    Answer<QPlainTextEdit>("txtSource", text, "cmdImport");
    Press("cmdImport");
  }
  std::string SavedAs(const char* name) {
    questions.savePath = folder / name;
    Press("cmdSaveAs");
    return folder.Read(name);
  }

 private:
  QTimer answers_;
  std::function<void()> answer_;
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
  EXPECT_EQ(List().currentIndex().data(), "b.imy");
  EXPECT_EQ(SelectedRow(), "a.imy") << "Save writes over the opened file";
  for (const Qt::Key harmless : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Left}) PressKey(harmless);
  EXPECT_EQ(Shown(), "|*4c2 *4d2");
  Press("cmdEraseRight");
  Press("cmdSave");
  EXPECT_THAT(folder.Read("a.imy"), HasSubstr("MELODY:d2"));
  EXPECT_EQ(Get<QPushButton>("cmdSave").text().remove('&'), "Save");
  PressKey(Qt::Key_Return);
  EXPECT_EQ(SelectedRow() + " " + Shown(), "b.imy |*4e2");
  PressKey(Qt::Key_Escape);
  EXPECT_EQ(window.focusWidget(), &Get<QWidget>("txtRight"));
  ClickRow("b.imy", Qt::RightButton);
  EXPECT_TRUE(Get<QMenu>("mnuRight").isVisible());
  Get<QMenu>("mnuRight").close();
  Trigger("mnuDelete");
  DoubleClickRow("[sub]");
  EXPECT_FALSE(Get<QWidget>("cmdSave").isEnabled());
  EXPECT_EQ(Get<QLabel>("lblFolder").text().toStdString() + " " + Rows(), "c:\\sub\\ [Previous]");
  List().setFocus();
  List().setCurrentIndex(RowAt(0));
  PressKey(Qt::Key_Return);
  EXPECT_EQ(Rows(), "[sub] a.imy bad.imy");
}

TEST(FileRows, ManyRowsComeInStepsAndARefillStartsAnew) {
  std::vector<FileRow> rows(35000, {RowKind::File, "a.imy"});
  FileRows model(rows, nullptr);
  QStringList progress;
  QObject::connect(&model, &FileRows::Progress, [&progress](const QString& text) { progress << text; });
  const QString first = "10,000 of 35,000 rows";
  model.Refill();
  QCoreApplication::processEvents();
  model.Refill();
  EXPECT_EQ(progress, QStringList({first, "20,000 of 35,000 rows", first}));
  model.Reach(15000);
  EXPECT_EQ(model.rowCount(), 15001);
  for (int i = 0; i < 9 && !progress.back().isEmpty(); ++i) QCoreApplication::processEvents();
  EXPECT_EQ(model.rowCount(), 35000);
  rows.resize(1);
  EXPECT_EQ(model.data(model.index(20000), Qt::DisplayRole), QVariant());
  progress.clear();
  model.Refill();
  EXPECT_EQ(progress, QStringList({""}));
}

TEST_F(MainWindowFiles, AFileOfTheCommandLineOrADroppedOneBringsItsModeAndPlaysOnDemand) {
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
  QMimeData text;
  text.setText("c2");
  QMimeData file;
  file.setUrls({QUrl::fromLocalFile(QString::fromStdString((folder / "c.rtx").string()))});
  for (const QMimeData* data : {&text, &file}) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), data == &file);
  }
  QDropEvent drop({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QTest::qWait(10);
  EXPECT_EQ(document.Mode(), FormatMode::Rtttl);
}

TEST_F(MainWindowFiles, ADoubleClickPlaysAFileOnce) {
  SetToggle("mnuSettingAutoPlay", true);
  DoubleClickRow("a.imy");
  EXPECT_EQ(sound.beeps.size(), 2U);
  SetOutput(OutputType::Wave);
  sound.lines.clear();
  bool pressed = false;  // the second press arrives while the first tone sounds
  pump.onPump = [&](int) {
    if (!std::exchange(pressed, true))
      QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, PlaceOf("b.imy"));
  };
  ClickRow("b.imy");
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
  questions.whileAsking = [this] {
    QTest::qWait(500);
    EXPECT_EQ(document.Size(), 2U);
  };
  EXPECT_THAT(SavedAs("new.imy"), HasSubstr("MELODY:a4b4"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Shown() == "|*4e2"; }, 2000)) << Shown();
}

TEST_F(MainWindowFiles, WhatIsSavedIsWhatThePanelShowsWhateverWasRefusedOrCancelled) {
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
  EXPECT_TRUE(cancelled);
  EXPECT_EQ(record, before);
  EXPECT_EQ(document.Info(), mine);
  EXPECT_EQ(Text("txtSongInfo(2)") + Text("txtSongInfo(4)"), "Mine150");
  EXPECT_THAT(SavedAs("mine.imy"), HasSubstr("NAME:Mine\r\nCOMPOSER:\r\nBEAT:150\r\nSTYLE:S0\r\nVOLUME:V10"));
  Import("tune:d=4,o=5,b=100:c,p,b");
  EXPECT_EQ(Shown(), "|*3c2 r2 *3b2");
  EXPECT_EQ(Text("txtSongInfo(2)"), "tune");
  EXPECT_EQ(SelectedRow(), "");
}

TEST_F(MainWindowFiles, TheSelectedRowIsWhatCtrlSOverwritesAndWithoutOneItIsSaveAs) {
  Press("cmdExport");
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to export"));
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
  questions.yes = false;
  EXPECT_EQ(SavedAs("b.imy"), Tune("e2"));
}

TEST_F(MainWindowFiles, WhatWasNotUnderstoodIsSaidAndFoundOneByOne) {
  const auto status = [this] { return window.statusBar()->currentMessage().toStdString(); };
  SetToggle("mnuSettingAutoPlay", false);
  folder.Write("slips.rtx", "slips:d=4,o=5,b=63:c,8c_,d,,oops,e,");
  window.OpenFile(folder / "slips.rtx");
  EXPECT_THAT(
      NoticeText().toStdString(),
      testing::StartsWith("3 of 6 elements were not understood, the first is \"8c_\" in line 1, column 22"));
  for (const char* problem : {"2 of 5", "4 of 5", "2 of 5"}) {
    PressKey(Qt::Key_F8);
    EXPECT_THAT(status(), testing::StartsWith("Element " + std::string(problem) + ": not understood ("));
    EXPECT_EQ(document.Selection(), (ElementRange{document.Cursor(), document.Cursor() + 1}));
  }
  for (int problem = 0; problem < 2; ++problem) {
    PressKey(Qt::Key_F8);
    PressKey(Qt::Key_Delete);
  }
  PressKey(Qt::Key_F8);
  EXPECT_EQ(status(), "No problem: all elements are understood, and RTTTL can hold them");
  Import("slips:d=4,o=5,b=63:c,8c_,d");
  EXPECT_THAT(NoticeText().toStdString(),
              testing::StartsWith("1 of 3 elements was not understood: it is \"8c_\" in line 1, column 22"));
}

TEST_F(MainWindowFiles, WhatWasNotDoneIsSaidAboveTheMelodyUntilSomethingIsOpened) {
  window.OpenFile(folder / "bad.imy");
  EXPECT_EQ(NoticeText().toStdString(),
            "Not opened: bad.imy, line 4, column 1: the line has no \":\" (\"no colon\"). "
            "Each line begins with a tag and \":\", like \"NAME:Tune\".");
  window.OpenFile(folder / "a.imy");
  EXPECT_EQ(NoticeText(), "");
  window.OpenFile(folder / "<b>nosuch.imy");
  EXPECT_THAT(NoticeText().toStdString(), HasSubstr("<b>nosuch.imy"));
  EXPECT_EQ(Get<QLabel>("lblMessage").textFormat(), Qt::PlainText);
  for (const char* name : {"a", "x/y"}) {
    window.OpenFile(folder / "b.imy");
    Answer<QLineEdit>("txtName", name, "cmdOK");
    Trigger("mnuRename");
    EXPECT_NE(NoticeText(), "") << name;
    EXPECT_EQ(folder.Read("b.imy"), Tune("e2"));
  }
}

TEST(MainWindowRecovery, AMelodyComesBackAfterAnAbnormalEndAndOnDemand) {
  const TempFolder state;
  for (const bool left : {false, true, true}) {
    Parts parts;
    MainWindow window(parts.ForWindow(state.Path()));
    window.Load();
    window.OfferRecovery();
    EXPECT_EQ(Find<QLabel>(window, "lblMessage").text().startsWith("Unsaved (1 element) was not saved"),
              left);
    EXPECT_EQ(ShownIn(window), "|");
    Click(window, "cmdControl(0)");
    Find<QLineEdit>(window, "txtSongInfo(2)").setText("Unsaved");
    Click(window, "cmdTone(0)");
    Click(window, "cmdControl(0)");
    TriggerInList(window, "mnuFileRecover", 0);
    EXPECT_EQ(ShownIn(window), "|*4c4");
    EXPECT_EQ(parts.document.Info().name, "Unsaved");
    QTest::qWait(Recovery::kTickInterval + 200);  // for the timer that writes it down
  }                                               // without Unload, as a crash leaves it
}

TEST_F(MainWindowFiles, TheSoundIsExportedAsWaveOrMidiAndWhatItReplacesIsKept) {
  EXPECT_FALSE(Action("mnuFileExportSound").isEnabled());
  ClickRow("a.imy");
  const auto exported = [this](const char* name) {
    questions.savePath = folder / name;
    Trigger("mnuFileExportSound");
    return NoticeText().toStdString();
  };
  const std::filesystem::path belongs = document.File();
  EXPECT_EQ(exported("tune"), "Wrote tune.wav");
  EXPECT_EQ(folder.Read("tune.wav").substr(0, 4), "RIFF");
  folder.Write("tune.mid", "old");
  questions.yes = false;
  exported("tune.mid");
  EXPECT_EQ(folder.Read("tune.mid"), "old");
  questions.yes = true;
  EXPECT_EQ(exported("tune.mid"), "Replaced tune.mid");
  EXPECT_EQ(folder.Read("tune.mid"), WriteMidi(document.CurrentSong()).bytes);
  Press("messageAction(0)");
  EXPECT_EQ(folder.Read("tune.mid"), "old");
  EXPECT_EQ(document.File(), belongs);
  EXPECT_THAT(exported("none/tune.mid"), HasSubstr("Not exported: tune.mid cannot be written"));
  questions.savePath.reset();
  Trigger("mnuFileExportSound");
}

TEST_F(MainWindowFiles, AMidiFileIsImportedInOneStepAndTellsWhatWasLeftOut) {
  MidiTrackDraft lead;
  lead.At(0, MidiName("Lead"));
  for (int i = 0; i < 3; ++i) lead.Note(96 * i, 96 * i + 96, 72 + 2 * i);
  MidiTrackDraft bass;
  bass.Note(0, 288, 48);
  folder.Write("two.mid", MidiBytes(1, 96, {bass.Track(), lead.Track()}));
  folder.Write("bad.mid", "MThd");
  Enter("c");
  const auto imported = [this](const char* name) {
    questions.openPath = folder / name;
    Answer<QPlainTextEdit>("txtSource", "", "cmdImportMidi");
    Press("cmdImport");
    return NoticeText().toStdString();
  };
  EXPECT_EQ(imported("two.mid"), "Imported two.mid; 1 other track is left out");
  EXPECT_EQ(questions.tracks.join('|').toStdString(), "1, 1 note|2: Lead, 3 notes");
  EXPECT_EQ(Shown(), "|*4c2 *4d2 *4e2");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Shown(), "*4c4|") << "one step";
  questions.track = 0;
  emit window.Dropped(folder / "two.mid");
  QCoreApplication::processEvents();
  EXPECT_EQ(Shown(), "|*2c1.");
  questions.track.reset();
  imported("two.mid");
  EXPECT_EQ(Shown(), "|*2c1.") << "no track was chosen";
  EXPECT_THAT(imported("bad.mid"), HasSubstr("Not imported: bad.mid: the MIDI file is broken off"));
}

}  // namespace
}  // namespace trillomat
