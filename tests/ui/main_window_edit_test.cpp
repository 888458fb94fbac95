// Undo, the clipboard, the title, the status bar and the message bar of the main window.
#include <QClipboard>
#include <QMimeData>
#include <QStatusBar>

#include "core/codec.h"

#include "ui/main_window_fixture.h"
#include "ui/melody_clipboard.h"

namespace trillomat {
namespace {

using testing::HasSubstr;

class MainWindowEdit : public MainWindowTest {
 protected:
  MainWindowEdit() { Press("optDuration(2)"); }

  std::string Caption(const QString& item) const {
    return Find<QAction>(window, item).text().remove('&').toStdString();
  }
  std::string Label(const QString& name) const { return Get<QLabel>(name).text().toStdString(); }
  std::string Status() const { return window.statusBar()->currentMessage().toStdString(); }
  /// The first elements, by keys.
  void Select(int count) {
    Get<QWidget>("txtRight").setFocus();
    PressKey(Qt::Key_Home);
    for (int i = 0; i < count; ++i) PressKey(Qt::Key_Right, Qt::ShiftModifier);
  }
  void SetClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
};

TEST_F(MainWindowEdit, TheMenuNamesWhatItTakesBack) {
  EXPECT_FALSE(Action("mnuEditUndo").isEnabled()) << "nothing was done yet";
  Enter("cd");
  EXPECT_EQ(Caption("mnuEditUndo"), "Undo entering a tone");
  Press("cmdControl(0)");
  EXPECT_EQ(Caption("mnuEditUndo"), "Undo clearing");
  PressKey(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Shown(), "*4c2 *4d2|");
  EXPECT_EQ(Caption("mnuEditRedo"), "Redo clearing");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Shown(), "*4c2|");
  Enter("e");
  EXPECT_EQ(Caption("mnuEditRedo"), "Redo");
  EXPECT_FALSE(Action("mnuEditRedo").isEnabled());
}

TEST_F(MainWindowEdit, TypingInATextBoxIsOneStepAndItsUndoTheSongs) {
  Enter("c");
  auto& name = Get<QLineEdit>("txtSongInfo(2)");
  name.setFocus();
  QTest::keyClicks(&name, "My tune");
  EXPECT_EQ(Caption("mnuEditUndo"), "Undo change of the name");
  QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(document.Info().name, "");
  EXPECT_EQ(name.text(), "");
  EXPECT_EQ(record.info.name, "") << "the next read starts from it";
  EXPECT_EQ(Caption("mnuEditUndo"), "Undo entering a tone");
  QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(name.text(), "My tune");
}

TEST_F(MainWindowEdit, AnOpenedFileIsTakenBackWithItsModeAndItsName) {
  folder.Write("a.imy", Tune("c2"));
  folder.Write("b.rtx", "b:d=4,o=5,b=63:d");
  window.OpenFile(folder / "a.imy", false);
  Enter("e");
  window.OpenFile(folder / "b.rtx", false);
  EXPECT_EQ(window.windowTitle(), "b.rtx[*] - Trillomat");
  Trigger("mnuEditUndo");
  EXPECT_EQ(document.Mode(), FormatMode::IMelody);
  EXPECT_EQ(window.windowTitle(), "a.imy[*] - Trillomat");
  EXPECT_TRUE(window.isWindowModified());
  EXPECT_EQ(document.Size(), 2U);
  Trigger("mnuEditUndo");
  EXPECT_FALSE(window.isWindowModified()) << "it is the saved song again";
}

TEST_F(MainWindowEdit, APhraseGoesThroughTheClipboardExactlyAndAsText) {
  for (const FormatMode mode :
       {FormatMode::IMelody, FormatMode::EMelody, FormatMode::Rtttl, FormatMode::Melody}) {
    SetMode(mode);
    Press("cmdControl(0)");
    Press("optDuration(3)");
    Enter("cde");
    Select(2);
    Trigger("mnuEditCut");
    EXPECT_EQ(document.Size(), 1U);
    const QString text = QGuiApplication::clipboard()->text();
    Trigger("mnuEditPaste");
    const ElementList exact = document.Elements();
    EXPECT_EQ(exact.size(), 3U);
    Select(2);
    Trigger("mnuEditDelete");
    SetClipboard(text);
    Trigger("mnuEditPaste");
    ASSERT_EQ(document.Size(), 3U) << text.toStdString();
    for (size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(Encode(document.Elements()[i], mode, kNoTokenDefaults, log).text,
                Encode(exact[i], mode, kNoTokenDefaults, log).text);
    }
  }
}

TEST_F(MainWindowEdit, WhatIsNoMelodyIsRefusedWithAWordAndChangesNothing) {
  Enter("c");
  const Song before = document.CurrentSong();
  for (const char* text : {"", "   ", "{ \"tone\": 440 }", "tune:d=4:"}) {
    SetClipboard(text);
    PressKey(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Status(), HasSubstr("Not pasted: ")) << text;
    EXPECT_EQ(document.CurrentSong(), before);
  }
  Enter("d");
  EXPECT_EQ(Status(), "") << "it counts no more";
  SetClipboard("x:d=4,o=5,b=63:c,8d");
  PressKey(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Shown(), "*4c2 *4d2 *3c2 *3d3|") << "RTTTL, whatever the mode";
}

TEST_F(MainWindowEdit, TheStatusBarSaysWhereTheCursorIsAndWhatStandsThere) {
  EXPECT_EQ(Label("lblFormat"), "I-Melody");
  EXPECT_EQ(Label("lblPosition"), "No elements");
  Get<QLineEdit>("txtSongInfo(4)").setText("100");
  Enter("cC-");
  EXPECT_EQ(Label("lblPosition"), "Element 3 of 3, 0:02 of 0:02");
  PressKey(Qt::Key_Left);
  EXPECT_EQ(Label("lblElement"), "c sharp, octave 4, quarter, 600 ms");
  EXPECT_EQ(Label("lblState"), "Not saved");
  PressKey(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Label("lblElement"), "3 elements selected");
  questions.savePath = folder / "a.imy";
  Press("cmdSaveAs");
  EXPECT_EQ(Label("lblState"), "Saved");
  SetMode(FormatMode::Melody);
  EXPECT_EQ(Label("lblFormat"), "Melody");
}

TEST_F(MainWindowEdit, WhatASaveReplacedIsRestoredFromTheMessageBar) {
  folder.Write("a.imy", Tune("c2"));
  window.OpenFile(folder / "a.imy", false);
  Enter("e");
  Trigger("mnuFileSave");
  EXPECT_EQ(NoticeText(), "Replaced a.imy");
  EXPECT_FALSE(window.isWindowModified());
  sound.onBeep = [&] { EXPECT_FALSE(Get<QPushButton>("messageAction(0)").isEnabled()) << "while it plays"; };
  Press("cmdControl(4)");
  EXPECT_FALSE(sound.beeps.empty());
  Press("messageAction(0)");
  EXPECT_EQ(folder.Read("a.imy"), Tune("c2"));
  EXPECT_TRUE(window.isWindowModified()) << "the file holds other bytes now";
  Press("messageClose");
  EXPECT_EQ(NoticeText(), "");
}

TEST_F(MainWindowEdit, NewAndRecentFilesAreAsTheButtons) {
  folder.Write("a.imy", Tune("c2"));
  folder.Write("b.imy", Tune("d2"));
  for (const char* name : {"a.imy", "b.imy"}) window.OpenFile(folder / name, false);
  Enter("e");
  Trigger("mnuFileNew");
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(window.windowTitle(), "Untitled[*] - Trillomat");
  EXPECT_FALSE(window.isWindowModified());
  SetToggle("mnuSettingAutoPlay", false);
  TriggerInList(window, "mnuFileRecent", 1);
  EXPECT_EQ(window.windowTitle(), "a.imy[*] - Trillomat");
  std::filesystem::remove(folder / "b.imy");
  TriggerInList(window, "mnuFileRecent", 1);
  EXPECT_THAT(NoticeText().toStdString(), HasSubstr("b.imy"));
  EXPECT_EQ(window.windowTitle(), "a.imy[*] - Trillomat");
}

TEST_F(MainWindowEdit, VolumeStripAndRecentFilesAreRemembered) {
  folder.Write("a.imy", Tune("c2"));
  window.OpenFile(folder / "a.imy", false);
  Get<QSlider>("sldVolume").setValue(40);
  Trigger("mnuViewStrip");
  window.Unload();
  MainWindow next(ForWindow());
  next.Load();
  EXPECT_EQ(Find<QSlider>(next, "sldVolume").value(), 40);
  EXPECT_TRUE(Find<QWidget>(next, "noteStrip").isHidden());
  EXPECT_FALSE(next.findChild<QAction*>("mnuViewStrip")->isChecked());
  emit Find<QMenu>(next, "mnuFileRecent").aboutToShow();
  EXPECT_THAT(next.findChild<QAction*>("mnuFileRecent(0)")->text().toStdString(), HasSubstr("a.imy"));
}

}  // namespace
}  // namespace trillomat
