// Entering and editing in the main window: that each control does what the composer's tests describe.
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
  EXPECT_FALSE(Get<QWidget>("txtRepeat").isVisible());
  for (int i = 0; i < 9; ++i) Press(IndexedName("cmdInsert", i));
  EXPECT_TRUE(Get<QWidget>("lblRepeat").isVisible() && Get<QWidget>("txtRepeat").isVisible());
  Get<QLineEdit>("txtRepeat").setText("3");
  Press("cmdInsert(9)");
  EXPECT_FALSE(Get<QWidget>("lblRepeat").isVisible() || Get<QWidget>("txtRepeat").isVisible());
  Get<QComboBox>("cboVolume").setCurrentText("12");
  Press("cmdInsert(10)");
  EXPECT_EQ(Shown(), "ledon ledoff vibeon vibeoff backon backoff V+ V- ( @3) V12|");
}

TEST_F(MainWindowEntry, DurationExtraAndOctaveGoIntoTheNextTone) {
  using Case = std::tuple<int, int, int, const char*>;
  for (const auto& [duration, extra, octave, shown] :
       {Case{0, 0, 0, "*0c0|"}, Case{1, 1, 8, "*8c1.|"}, Case{5, 2, 4, "*4c5:|"}, Case{3, 3, 3, "*3c3;|"},
        Case{4, 0, 5, "*5c4|"}}) {
    Press("cmdControl(0)");
    Press(IndexedName("optDuration", duration));
    Press(IndexedName("optDurationExtra", extra));
    Get<QSlider>("SliderOctave").setValue(octave);
    Enter("c");
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Get<QLabel>("lbl(1)").text(), QString::number(octave));
  }
}

TEST_F(MainWindowEntry, EveryEditingButtonDoesItsWorkAndSoundsOnDemand) {
  using Step = std::tuple<const char*, const char*, int>;
  Enter("cde");
  for (const auto& [button, shown, beeps] :
       {Step{"cmdRight", "*4c2 *4d2 *4e2|", 1}, Step{"cmdLeft", "*4c2 *4d2|*4e2", 1},
        Step{"cmdDuration", "*4c2 *4d3|*4e2", 1}, Step{"cmdLowHigh", "*4c2 *4#d3|*4e2", 1},
        Step{"cmdScaleUP", "*5c2 *5#d3|*5e2", 0}, Step{"cmdScaleDown", "*4c2 *4#d3|*4e2", 0},
        Step{"cmdEraseRight", "*4c2 *4#d3|", 0}, Step{"cmdEraseLeft", "*4c2|", 0}}) {
    sound.beeps.clear();
    Press(button);
    EXPECT_EQ(Shown(), shown) << button;
    EXPECT_EQ(static_cast<int>(sound.beeps.size()), beeps) << button;
  }
  EXPECT_TRUE(Get<QRadioButton>("optDuration(3)").isChecked());

  SetToggle("mnuSettingPlayComposing", false);
  SetToggle("mnuSettingPlayMoving", false);
  sound.beeps.clear();
  Enter("c");
  for (const char* silent : {"cmdDuration", "cmdLeft", "cmdRight"}) Press(silent);
  EXPECT_THAT(sound.beeps, IsEmpty());
  Press("cmdLowHigh");  // sounds whatever the settings say
  EXPECT_THAT(sound.beeps, ElementsAre(testing::Gt(0)));
}

TEST_F(MainWindowEntry, CaretsStandAtTheCursor) {
  Enter("cd");
  EXPECT_EQ(Get<QLineEdit>("txtLeft").cursorPosition(), Text("txtLeft").size());
  Press("cmdLeft");
  EXPECT_EQ(Get<QLineEdit>("txtRight").cursorPosition(), 1);
  EXPECT_EQ(Text("txtRight"), "   *4d2");
}

}  // namespace
}  // namespace trillomat
