// What the main window does so that nothing is lost: the recovered melody, the notice on a refused file,
// and files dropped onto it.
#include <QMimeData>
#include <QUrl>

#include "browser/recovery.h"
#include "ui/main_window.h"

namespace trillomat {
namespace {

using testing::Contains;

/// One run of the program, with its state kept in `state`.
class ProgramRun : public MainWindowParts {
 public:
  explicit ProgramRun(const TempFolder& state)
      : window({ws, clock, sound, settings, files, questions, state.Path()}) {
    window.Load();
    settings.values["Version/Counter"] = "2";
    window.show();
  }
  /// Enters a tone and leaves the timer the time to write it down.
  void EnterTone(int key) {
    Click(window, IndexedName("cmdTone", key));
    QTest::qWait(Recovery::kTickInterval + 200);
  }
  std::string Shown() const { return ShownIn(window); }
  void Recover() { window.findChild<QAction*>("mnuFileRecover")->trigger(); }

  frmMain window;
};

TEST(MainWindowRecovery, AMelodyComesBackAfterAnAbnormalEndAndLaterOnDemandAlone) {
  const TempFolder state;
  {
    ProgramRun killed(state);
    Control<QLineEdit>(killed.window, "txtSongInfo(2)").setText("Unsaved");
    killed.EnterTone(0);
  }  // without Unload, as a crash leaves it
  {
    ProgramRun declined(state);
    declined.questions.yes = false;
    declined.window.OfferRecovery();
    EXPECT_EQ(declined.Shown(), "|");
    declined.Recover();
    EXPECT_EQ(declined.Shown(), "|*4c4");
    EXPECT_EQ(declined.ws.header.Name, "Unsaved");
    QTest::qWait(Recovery::kTickInterval + 200);
  }
  {
    ProgramRun accepted(state);
    accepted.window.OfferRecovery();
    EXPECT_EQ(accepted.Shown(), "|*4c4");
    accepted.EnterTone(2);
    accepted.window.Unload();
  }
  ProgramRun next(state);
  next.window.OfferRecovery();
  EXPECT_EQ(next.Shown(), "|");
  next.Recover();
  EXPECT_EQ(next.Shown(), "|*4d4 *4c4");
}

TEST(MainWindowRecovery, ClearingCanBeTakenBack) {
  const TempFolder state;
  ProgramRun run(state);
  run.Recover();
  EXPECT_THAT(run.log.lines, Contains("2: There is no melody to recover"));
  run.EnterTone(4);
  Click(run.window, "cmdControl(0)");
  EXPECT_EQ(run.Shown(), "|");
  run.Recover();
  EXPECT_EQ(run.Shown(), "|*4e4");
}

TEST_F(MainWindowTest, ARefusedFileIsSaidBesideTheListUntilTheNextIsOpened) {
  folder.Write("blank.imy", "BEGIN:IMELODY\r\nMELODY:c2\r\nEND:IMELODY\r\n\r\n");
  folder.Write("good.imy", "BEGIN:IMELODY\r\nMELODY:c2\r\nEND:IMELODY\r\n");
  auto& notice = Get<QLabel>("lblNotice");
  EXPECT_FALSE(notice.isVisible());
  window.OpenFile(folder / "blank.imy");
  EXPECT_TRUE(notice.isVisible());
  EXPECT_EQ(notice.text().toStdString(), "Not opened: line 4 has no \":\": \"\"");
  window.OpenFile(folder / "good.imy");
  EXPECT_FALSE(notice.isVisible());
}

TEST_F(MainWindowTest, ADroppedFileOpensAndOtherThingsAreRefused) {
  folder.Write("dropped.mel", "+C");
  SetToggle("mnuSettingAutoPlay", false);
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
  EXPECT_EQ(ws.iNoteMode, FormatMode::Melody);
  EXPECT_EQ(Shown(), "|+C");
}

}  // namespace
}  // namespace trillomat
