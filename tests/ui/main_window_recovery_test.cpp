// What the main window does so that nothing is lost: the recovered melody, the notice on a refused file,
// and files dropped onto it.
#include <gmock/gmock.h>

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
    Click(window, IndexedName("cmdTone", key).toLatin1().constData());
    QTest::qWait(Recovery::kTickInterval + 200);
  }
  std::string Shown() {
    return (Control<QLineEdit>(window, "txtLeft").text().simplified() + "|" +
            Control<QLineEdit>(window, "txtRight").text().simplified())
        .toStdString();
  }
  void Recover() { window.findChild<QAction*>("mnuFileRecover")->trigger(); }

  frmMain window;
};

TEST(MainWindowRecovery, AMelodyComesBackAfterAnAbnormalEnd) {
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
  ProgramRun accepted(state);
  accepted.window.OfferRecovery();
  EXPECT_EQ(accepted.Shown(), "|*4c4");
}

TEST(MainWindowRecovery, AfterANormalEndItIsBroughtBackOnDemandAlone) {
  const TempFolder state;
  {
    ProgramRun run(state);
    run.EnterTone(2);
    run.window.Unload();
  }
  ProgramRun next(state);
  next.window.OfferRecovery();
  EXPECT_EQ(next.Shown(), "|");
  next.Recover();
  EXPECT_EQ(next.Shown(), "|*4d4");
}

TEST(MainWindowRecovery, ClearingAndOpeningCanBeTakenBack) {
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

TEST_F(MainWindowTest, ADroppedFileOpens) {
  folder.Write("dropped.mel", "+C");
  SetToggle("mnuSettingAutoPlay", false);
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString((folder / "dropped.mel").string()))});
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QTest::qWait(10);
  EXPECT_EQ(ws.iNoteMode, FormatMode::Melody);
  EXPECT_EQ(Shown(), "|+C");
  QMimeData text;
  text.setText("c2");
  QDragEnterEvent other({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &other);
  EXPECT_FALSE(other.isAccepted());
}

}  // namespace
}  // namespace trillomat
