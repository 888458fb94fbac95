// The main window by keyboard, and where the focus goes.
#include <QAccessible>
#include <QMenuBar>
#include <QSet>

#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::SizeIs;

class MainWindowKeys : public MainWindowTest {
 protected:
  MainWindowKeys() { Press("optDuration(2)"); }
};

TEST_F(MainWindowKeys, TheMelodyHasTheFocusAndItsKeysEditIt) {
  for (const char letter : std::string("zsxdcvgbhnjm")) QTest::keyClick(window.focusWidget(), letter);
  EXPECT_EQ(TokensOf(document.Elements(), " "),
            "*4c2 *4#c2 *4d2 *4#d2 *4e2 *4f2 *4#f2 *4g2 *4#g2 *4a2 *4#a2 *4b2");
  using Step = std::tuple<Qt::Key, const char*>;
  for (const char* focus : {"txtRight", "cmdPause", "cmdTone(1)"}) {
    Press("cmdControl(0)");
    Enter("cCb");
    Get<QWidget>(focus).setFocus();
    for (const auto& [key, shown] :
         {Step{Qt::Key_Left, "*4c2 *4#c2|*4b2"}, Step{Qt::Key_Backspace, "*4c2|*4b2"},
          Step{Qt::Key_Delete, "*4c2|"}, Step{Qt::Key_Home, "|*4c2"}, Step{Qt::Key_Right, "*4c2|"},
          Step{Qt::Key_Home, "|*4c2"}, Step{Qt::Key_End, "*4c2|"}}) {
      PressKey(key);
      EXPECT_EQ(Shown(), shown) << focus;
    }
  }
}

// Letters insert notes and Space plays wherever they are not typed.
TEST_F(MainWindowKeys, LettersAndSpaceWorkEverywhereButWhereTextIsTyped) {
  using Case = std::tuple<const char*, bool>;
  folder.Write("a.imy", Tune("c2"));
  SetMode(FormatMode::IMelody);
  SetToggle("mnuSettingAutoPlay", false);
  for (const auto& [control, plays] :
       {Case{"txtSongInfo(2)", false}, Case{"txtRepeat", false}, Case{"cboVolume", false},
        Case{"txtRight", true}, Case{"cmdTone(3)", true}, Case{"SliderOctave", true}, Case{"ListFiles", true},
        Case{"cboSongInfo(0)", true}, Case{"cboDrives", true}, Case{"optDuration(2)", true},
        Case{"cmdPause", true}, Case{"cmdControl(4)", true}}) {
    Press("cmdControl(0)");
    Enter("a");
    Press("cmdInsert(8)");
    ClickRow("a.imy");
    Get<QWidget>(control).setFocus();
    PressKey(Qt::Key_X);
    EXPECT_EQ(Shown(), plays ? "*4d2|*4c2" : "|*4c2") << control;
    sound.beeps.clear();
    PressKey(Qt::Key_Space);
    EXPECT_THAT(sound.beeps, SizeIs(plays ? 2 : 0)) << control;
    EXPECT_EQ(document.Size(), plays ? 2U : 1U) << control << " was pressed";
  }
  EXPECT_EQ(Text("txtSongInfo(2)"), "Tune");
  EXPECT_EQ(Text("txtRepeat"), "x ");
}

TEST_F(MainWindowKeys, SpaceStopsNeverPressesTheLastButtonAndLeavesAnOpenMenuAlone) {
  for (const char* button : {"cmdTone(9)", "cmdPause", "optDuration(3)"}) {
    QTest::mouseClick(&Get<QWidget>(button), Qt::LeftButton);
  }
  EXPECT_THAT(document.Elements(), SizeIs(2));
  Enter("aa");
  sound.beeps.clear();
  sound.onBeep = [this] { PressKey(Qt::Key_Space); };
  PressKey(Qt::Key_Space);
  EXPECT_THAT(sound.beeps, SizeIs(1));
  window.menuBar()->setFocus();
  QTest::keyClick(window.menuBar(), Qt::Key_Space);
  QTest::keyClick(window.menuBar(), Qt::Key_Z);
  EXPECT_THAT(sound.beeps, SizeIs(1));
  EXPECT_THAT(document.Elements(), SizeIs(4));
  window.menuBar()->clearFocus();
  Get<QWidget>("cmdPause").setFocus();
  PressKey(Qt::Key_Return);
  EXPECT_THAT(document.Elements(), SizeIs(5)) << "Enter presses a button";
}

TEST_F(MainWindowKeys, TabReachesEveryControlInTheOrderOfTheEye) {
  QStringList reached;
  Get<QWidget>("cmdTone(0)").setFocus();
  for (QString name = "cmdTone(0)"; !reached.contains(name); name = window.focusWidget()->objectName()) {
    reached << name;
    PressKey(Qt::Key_Tab);
  }
  const auto group = [](const char* name, int count) {
    QString names;
    for (int i = 0; i < count; ++i) names += IndexedName(name, i) + ' ';
    return names;
  };
  const QString expected =
      group("cmdTone", 12) +
      "cmdPause cmdDuration cmdLowHigh SliderOctave optDuration(2) optDurationExtra(0) cmdScaleDown "
      "cmdScaleUP " +
      group("cmdInsert", 11) +
      "cboVolume txtLeft txtRight noteStrip cmdEraseLeft cmdLeft cmdRight cmdEraseRight " +
      group("cmdControl", 6) +
      "sldVolume txtSongInfo(2) txtSongInfo(3) txtSongInfo(4) cboSongInfo(0) cboSongInfo(1) cboDrives "
      "ListFiles "
      "cmdSaveAs cmdImport cmdExport";
  EXPECT_EQ(reached.join(' ').toStdString(), expected.toStdString());
}

TEST_F(MainWindowKeys, MnemonicsDoNotCollide) {
  QSet<QString> seen;
  const auto add = [&](const QString& caption) {
    const QString mnemonic = QKeySequence::mnemonic(caption).toString();
    EXPECT_FALSE(seen.contains(mnemonic)) << caption.toStdString();
    if (!mnemonic.isEmpty()) seen.insert(mnemonic);
  };
  for (const QAction* menu : window.menuBar()->actions()) add(menu->text());
  for (const auto* button : window.findChildren<QAbstractButton*>()) add(button->text());
  for (const auto* label : window.findChildren<QLabel*>()) add(label->text());
  EXPECT_GE(seen.size(), 25);
  EXPECT_EQ(Get<QAbstractButton>("cmdTone(9)").text(), "\r\n\r\n\r\nA");
}

}  // namespace
}  // namespace trillomat
