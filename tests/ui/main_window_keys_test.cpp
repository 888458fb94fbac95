// The main window by keyboard, its names for screen readers, and where the focus goes.
#include <QAccessible>
#include <QSet>

#include "ui/main_window.h"
#include "ui/piano_keyboard.h"

namespace trillomat {
namespace {

using testing::SizeIs;

class MainWindowKeys : public MainWindowTest {
 protected:
  MainWindowKeys() {
    Press("optDuration(2)");
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  void PressKey(Qt::Key key) { QTest::keyClick(window.focusWidget(), key); }
};

TEST_F(MainWindowKeys, TheMelodyHasTheFocusAndItsKeysEditIt) {
  for (const char letter : kPianoLetters) QTest::keyClick(window.focusWidget(), letter);
  ASSERT_THAT(ws.melody.Elements(), SizeIs(12));
  for (size_t i = 0; i < 12; ++i) EXPECT_EQ(ws.melody.Elements()[i].Note, kToneKeys[i]);
  Press("cmdControl(0)");
  Enter("cCb");
  using Step = std::tuple<Qt::Key, const char*>;
  for (const auto& [key, shown] :
       {Step{Qt::Key_Left, "*4c2 *4#c2|*4b2"}, Step{Qt::Key_Backspace, "*4c2|*4b2"},
        Step{Qt::Key_Delete, "*4c2|"}, Step{Qt::Key_Home, "|*4c2"}, Step{Qt::Key_Right, "*4c2|"},
        Step{Qt::Key_Home, "|*4c2"}, Step{Qt::Key_End, "*4c2|"}}) {
    PressKey(key);
    EXPECT_EQ(Shown(), shown);
  }
}

TEST_F(MainWindowKeys, LettersTypeWhereTextIsTypedAndPlayEverywhereElse) {
  using Case = std::tuple<const char*, bool>;
  Press("cmdInsert(8)");
  for (const auto& [control, plays] :
       {Case{"txtSongInfo(2)", false}, Case{"txtRepeat", false}, Case{"cboVolume", false},
        Case{"txtRight", true}, Case{"cmdTone(3)", true}, Case{"SliderOctave", true}, Case{"ListFiles", true},
        Case{"cboSongInfo(0)", true}, Case{"optDuration(2)", true}, Case{"cmdControl(4)", true}}) {
    const int32_t before = ws.melody.UpperBound();
    Get<QWidget>(control).setFocus();
    PressKey(Qt::Key_X);
    EXPECT_EQ(ws.melody.UpperBound() - before, plays ? 1 : 0) << control;
  }
  EXPECT_EQ(Text("txtSongInfo(2)"), "x");
}

TEST_F(MainWindowKeys, SpacePlaysAndStopsAndNeverPressesTheLastButton) {
  QTest::mouseClick(&Get<QWidget>("cmdTone(9)"), Qt::LeftButton);
  QTest::mouseClick(&Get<QWidget>("cmdPause"), Qt::LeftButton);
  QTest::mouseClick(&Get<QWidget>("optDuration(3)"), Qt::LeftButton);
  sound.beeps.clear();
  PressKey(Qt::Key_Space);
  EXPECT_THAT(sound.beeps, SizeIs(1));
  EXPECT_THAT(ws.melody.Elements(), SizeIs(2));
  sound.onBeep = [this] {
    QTest::mouseClick(&Get<QWidget>("cmdControl(4)"), Qt::LeftButton);
    PressKey(Qt::Key_Space);
  };
  Enter("aa");
  sound.beeps.clear();
  PressKey(Qt::Key_Space);
  EXPECT_THAT(sound.beeps, SizeIs(1));
}

TEST_F(MainWindowKeys, TypedTextHandsTheFocusBackOnEnterAndOnTheNextButton) {
  for (const bool enter : {true, false}) {
    Get<QWidget>("txtSongInfo(2)").setFocus();
    PressKey(Qt::Key_X);
    if (enter) PressKey(Qt::Key_Return);
    if (!enter) QTest::mouseClick(&Get<QWidget>("cmdPause"), Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), &Get<QWidget>("txtRight"));
  }
}

TEST_F(MainWindowKeys, AFocusThatIsLockedAwayGoesToTheMelody) {
  Enter("a");
  Get<QWidget>("cmdEraseLeft").setFocus();
  Press("cmdControl(4)");
  EXPECT_EQ(window.focusWidget(), &Get<QWidget>("txtRight"));
}

TEST_F(MainWindowKeys, EveryControlIsNamedAndReachedByTabInTheOrderOfTheEye) {
  QStringList reached;
  Get<QWidget>("cmdTone(0)").setFocus();
  for (QString name = "cmdTone(0)"; !reached.contains(name); name = window.focusWidget()->objectName()) {
    reached << name;
    EXPECT_FALSE(window.focusWidget()->accessibleName().isEmpty()) << name.toStdString();
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
      group("cmdInsert", 11) + "cboVolume txtLeft txtRight cmdEraseLeft cmdLeft cmdRight cmdEraseRight " +
      group("cmdControl", 6) +
      "txtSongInfo(2) txtSongInfo(3) txtSongInfo(4) cboSongInfo(0) cboSongInfo(1) cboDrives ListFiles "
      "cmdSaveAs cmdImport cmdExport";
  EXPECT_EQ(reached.join(' ').toStdString(), expected.toStdString());
}

TEST_F(MainWindowKeys, MnemonicsDoNotCollideNorChangeACaption) {
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
  using Group = std::tuple<const char*, QStringList>;
  for (const auto& [group, captions] :
       {Group{"optDuration", {"Full note", "1/2 note", "1/4 note", "1/8 note", "1/16 note", "1/32 note"}},
        Group{"optDurationExtra", {"Nothing", "Dotted note", "Double dotted note", "2/3 length"}},
        Group{"cmdControl", {"Clear", "Start over", "Pause", "Stop", "Play", "To end"}},
        Group{"cmdInsert",
              {"LED on", "LED off", "VIB on", "VIB off", "Light on", "Light on", "Volume (+)", "Volume (-)",
               "Repeat start", "Repeat stop", "Set Volume"}}}) {
    for (int i = 0; i < captions.size(); ++i) {
      EXPECT_EQ(Get<QAbstractButton>(IndexedName(group, i)).text().remove('&'), captions.at(i));
    }
  }
}

}  // namespace
}  // namespace trillomat
