// Entering and editing in the main window.
#include <gmock/gmock.h>

#include "ui/main_window.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainWindowEntry : public MainWindowTest {
 protected:
  MainWindowEntry() { Press("optDuration(2)"); }
};

TEST_F(MainWindowEntry, EveryKeyAndCommandInsertsItsElementAtTheCursor) {
  Enter("cCdDefFgGaAb-");
  EXPECT_EQ(Shown(), "*4d2 *4#d2 *4e2 *4f2 *4#f2 *4g2 *4#g2 *4a2 *4#a2 *4b2 r2|");
  EXPECT_EQ(ws.melody.At(0).Note, "c");
  EXPECT_EQ(sound.beeps.size(), 12U);  // a pause is not sounded
  Press("cmdControl(0)");
  EXPECT_EQ(Shown(), "|");
  for (int i = 0; i < 9; ++i) Press(IndexedName("cmdInsert", i));
  Get<QLineEdit>("txtRepeat").setText("3");
  Press("cmdInsert(9)");
  Get<QComboBox>("cboVolume").setCurrentText("12");
  Press("cmdInsert(10)");
  EXPECT_EQ(Shown(), "ledon ledoff vibeon vibeoff backon backoff V+ V- ( @3) V12|");
  Press("cmdLeft");
  Enter("e");
  EXPECT_EQ(Shown(), "ledon ledoff vibeon vibeoff backon backoff V+ V- ( @3) *4e2|V12");
}

TEST_F(MainWindowEntry, TheRepeatCountShowsWhileARepeatIsOpen) {
  const auto shown = [this] {
    return Get<QWidget>("lblRepeat").isVisible() && Get<QWidget>("txtRepeat").isVisible();
  };
  EXPECT_FALSE(shown());
  Press("cmdInsert(8)");
  EXPECT_TRUE(shown());
  Press("cmdInsert(9)");
  EXPECT_FALSE(shown());
  EXPECT_EQ(Shown(), "( @)|");
}

TEST_F(MainWindowEntry, DurationExtraAndOctaveGoIntoTheNextTone) {
  struct Case {
    int duration;
    int extra;
    int octave;
    const char* shown;
  };
  for (const Case& c : {Case{0, 0, 0, "*0c0|"}, Case{1, 1, 8, "*8c1.|"}, Case{5, 2, 4, "*4c5:|"},
                        Case{3, 3, 3, "*3c3;|"}, Case{4, 0, 5, "*5c4|"}}) {
    Press("cmdControl(0)");
    Press(IndexedName("optDuration", c.duration));
    Press(IndexedName("optDurationExtra", c.extra));
    Get<QSlider>("SliderOctave").setValue(c.octave);
    Enter("c");
    EXPECT_EQ(Shown(), c.shown);
    EXPECT_EQ(Get<QLabel>("lbl(1)").text(), QString::number(c.octave));
  }
}

TEST_F(MainWindowEntry, TheElementAtTheCursorIsRetimedAndRespelled) {
  Enter("d");
  for (const char* shown : {"*4d3|", "*4d4|", "*4d5|", "*4d0|"}) {
    Press("cmdDuration");
    EXPECT_EQ(Shown(), shown);
  }
  EXPECT_TRUE(Get<QRadioButton>("optDuration(0)").isChecked());
  for (const char* shown : {"*4#d0|", "*4&d0|", "*4d0|"}) {
    Press("cmdLowHigh");
    EXPECT_EQ(Shown(), shown);
  }
}

TEST_F(MainWindowEntry, ArrowsMoveAndErasesDelete) {
  struct Step {
    const char* button;
    const char* shown;
    int beeps;  // what moving over an element sounds
  };
  Enter("cde");
  sound.beeps.clear();
  for (const Step& step :
       {Step{"cmdRight", "*4c2 *4d2 *4e2|", 1}, Step{"cmdLeft", "*4c2 *4d2|*4e2", 1},
        Step{"cmdLeft", "*4c2|*4d2 *4e2", 1}, Step{"cmdEraseRight", "*4c2|*4e2", 0},
        Step{"cmdEraseLeft", "|*4e2", 0}, Step{"cmdEraseLeft", "|*4e2", 0}, Step{"cmdLeft", "|*4e2", 1},
        Step{"cmdEraseRight", "|", 0}, Step{"cmdRight", "|", 0}}) {
    sound.beeps.clear();
    Press(step.button);
    EXPECT_EQ(Shown(), step.shown) << step.button;
    EXPECT_EQ(static_cast<int>(sound.beeps.size()), step.beeps) << step.button;
  }
}

TEST_F(MainWindowEntry, CaretsStandAtTheCursor) {
  Enter("cd");
  EXPECT_EQ(Get<QLineEdit>("txtLeft").cursorPosition(), Text("txtLeft").size());
  Press("cmdLeft");
  EXPECT_EQ(Get<QLineEdit>("txtRight").cursorPosition(), 1);
  EXPECT_EQ(Text("txtRight"), "   *4d2");
}

TEST_F(MainWindowEntry, ScaleMovesAllNotesOrSaysWhatIsInTheWay) {
  Enter("c");
  Press("cmdScaleUP");
  EXPECT_EQ(Shown(), "*5c2|");
  Press("cmdScaleDown");
  EXPECT_EQ(Shown(), "*4c2|");
  for (int i = 0; i < 4; ++i) Press("cmdScaleUP");
  log.lines.clear();
  Press("cmdScaleUP");
  EXPECT_EQ(Shown(), "*8c2|");
  EXPECT_THAT(log.lines, ElementsAre("1: Change Scale started",
                                     "2: All notes must be within scale 0-8, currently note 1 is incorrect"));
}

TEST_F(MainWindowEntry, ATonePressedWhileOneSoundsIsDropped) {
  sound.onBeep = [this] {
    Press("cmdTone(4)");
    Press("cmdPause");
  };
  Enter("c");
  EXPECT_EQ(Shown(), "*4c2 r2|");
}

TEST_F(MainWindowEntry, TheThreeSettingsDecideWhatSounds) {
  SetToggle("mnuSettingPlayComposing", false);
  SetToggle("mnuSettingPlayMoving", false);
  Enter("c");
  Press("cmdDuration");
  Press("cmdLeft");
  Press("cmdRight");
  EXPECT_THAT(sound.beeps, IsEmpty());
  Press("cmdLowHigh");  // sounds whatever the settings say
  EXPECT_THAT(sound.beeps, ElementsAre(testing::Gt(0)));
}

}  // namespace
}  // namespace trillomat
