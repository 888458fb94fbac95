// Entering and editing in the main window: that each control does what the composer's tests describe, and
// that the window shows what came of it.
#include <QClipboard>
#include <QWheelEvent>

#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

class MainWindowEntry : public MainWindowTest {
 protected:
  MainWindowEntry() { Press("optDuration(2)"); }

  /// The members of an indexed group: "." disabled, "x" enabled, "X" selected.
  std::string State(const char* group, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      const auto& member = Get<QWidget>(IndexedName(group, i));
      const auto* option = qobject_cast<const QRadioButton*>(&member);
      text += option != nullptr && option->isChecked() ? 'X' : member.isEnabled() ? 'x' : '.';
    }
    return text;
  }
  void Type(const QString& name, const QString& text) {
    Get<QLineEdit>(name).selectAll();
    QTest::keyClick(&Get<QWidget>(name), Qt::Key_Delete);
    QTest::keyClicks(&Get<QWidget>(name), text);
  }
  void Paste(QLineEdit& box, const QString& text) {
    QApplication::clipboard()->setText(text);
    box.clear();
    box.paste();
  }
  bool IsRed(const QString& name) {
    return Get<QLineEdit>(name).palette().color(QPalette::Text) == QColor(255, 0, 0);
  }
};

TEST_F(MainWindowEntry, EveryKeyAndCommandInsertsItsElementAtTheCursor) {
  Enter("cCdDefFgGaAb-");
  EXPECT_EQ(Shown(), "*4d2 *4#d2 *4e2 *4f2 *4#f2 *4g2 *4#g2 *4a2 *4#a2 *4b2 r2|");
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

TEST_F(MainWindowEntry, EveryEditingControlDoesItsWorkAndSoundsOnDemand) {
  using Step = std::tuple<const char*, const char*, int>;
  Press("optDurationExtra(1)");
  Get<QSlider>("SliderOctave").setValue(5);
  EXPECT_EQ(Get<QLabel>("lbl(1)").text(), "5");
  Enter("cde");
  for (const auto& [button, shown, beeps] :
       {Step{"cmdRight", "*5c2. *5d2. *5e2.|", 1}, Step{"cmdLeft", "*5c2. *5d2.|*5e2.", 1},
        Step{"cmdDuration", "*5c2. *5d3.|*5e2.", 1}, Step{"cmdLowHigh", "*5c2. *5#d3.|*5e2.", 1},
        Step{"cmdScaleUP", "*6c2. *6#d3.|*6e2.", 0}, Step{"cmdScaleDown", "*5c2. *5#d3.|*5e2.", 0},
        Step{"cmdEraseRight", "*5c2. *5#d3.|", 0}, Step{"cmdEraseLeft", "*5c2.|", 0}}) {
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
  EXPECT_THAT(sound.beeps, testing::IsEmpty());
  Press("cmdLeft");
  EXPECT_EQ(Get<QLineEdit>("txtLeft").cursorPosition(), Text("txtLeft").size());
  EXPECT_EQ(Get<QLineEdit>("txtRight").cursorPosition(), 1);
  EXPECT_EQ(Text("txtRight"), "   *5c4.");
}

TEST_F(MainWindowEntry, TheModeDecidesWhatIsOfferedAndShown) {
  struct Case {
    FormatMode mode;
    const char* rangeNote;
    const char* durations;  // 1/16 was selected
    const char* extras;     // "Dotted note" was selected
    const char* rows;
  };
  for (const Case& c :
       {Case{FormatMode::EMelody, "Only octave 3-5 supported", "xxXx..", "X...", ""},
        Case{FormatMode::Rtttl, "Only octave 3-6 supported", "xxxxXx", "Xx..",
             "Name,B P M,Repeat,Duration (Default),Octave (Default),Style"},
        Case{FormatMode::IMelody, "", "xxxxXx", "xXxx", "Version,Format,Name,Composer,B P M,Style,Volume"}}) {
    SetMode(FormatMode::IMelody);
    Press("optDuration(4)");
    Press("optDurationExtra(1)");
    const int slider = Get<QWidget>("SliderOctave").width();
    SetMode(c.mode);
    QCoreApplication::processEvents();
    EXPECT_EQ(Get<QWidget>("SliderOctave").width(), slider) << c.rangeNote;
    EXPECT_EQ(Get<QLabel>("lbl(2)").text(), c.rangeNote);
    EXPECT_EQ(State("optDuration", 6), c.durations);
    EXPECT_EQ(State("optDurationExtra", 4), c.extras);
    EXPECT_EQ(State("cmdInsert", 11), std::string(11, c.mode == FormatMode::IMelody ? 'x' : '.'));
    EXPECT_EQ(Get<QComboBox>("cboVolume").isEnabled(), c.mode == FormatMode::IMelody);
    QStringList rows;
    for (int i = 0; i < 7; ++i) {
      const auto& label = Get<QLabel>(IndexedName("lblSongInfo", i));
      EXPECT_EQ(label.isVisible(), label.buddy()->isVisible());
      if (label.isVisible()) rows << label.text().remove('&');
    }
    EXPECT_EQ(rows.join(',').toStdString(), c.rows);
    EXPECT_TRUE(Action(IndexedName("mnuSettingFormatType", static_cast<int>(document.Mode()))).isChecked());
  }
}

TEST_F(MainWindowEntry, TheSongInformationIsTakenOverAsItIsTyped) {
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S0: Natural Style");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").currentText(), "V10");
  EXPECT_EQ(State("txtSongInfo", 5), "..xxx");
  Type("txtSongInfo(2)", "Tune");
  Type("txtSongInfo(3)", "Bach");
  Type("txtSongInfo(4)", "2x0-0");
  EXPECT_EQ(Text("txtSongInfo(4)"), "200");
  Get<QComboBox>("cboSongInfo(0)").setCurrentIndex(2);
  Get<QComboBox>("cboSongInfo(1)").setCurrentIndex(3);
  const SongInfo taken{.name = "Tune", .composer = "Bach", .bpm = 200, .style = "S2", .volume = "V3"};
  EXPECT_EQ(document.Info(), taken);
  EXPECT_EQ(record.info, taken);
  EXPECT_FALSE(IsRed("txtSongInfo(4)"));
  Get<QLineEdit>("txtSongInfo(4)").setText("fast");  // pasted text passes the key filter
  EXPECT_TRUE(IsRed("txtSongInfo(4)"));
  SetMode(FormatMode::Rtttl);
  EXPECT_EQ(Text("txtSongInfo(0)"), "Tune");
  Type("txtSongInfo(2)", "1a6");
  EXPECT_EQ(Text("txtSongInfo(2)"), "16");
  EXPECT_TRUE(IsRed("txtSongInfo(2)"));
  EXPECT_EQ(document.Info().loop, 1);
}

TEST_F(MainWindowEntry, TextBoxesHoldOneLineInTheProgramsCodePage) {
  Press("cmdInsert(8)");
  for (QLineEdit* box : {&Get<QLineEdit>("txtSongInfo(2)"), &Get<QLineEdit>("txtSongInfo(3)"),
                         &Get<QLineEdit>("txtRepeat"), Get<QComboBox>("cboVolume").lineEdit()}) {
    Paste(*box, QStringLiteral("a\r\nb\tc\u0001d\u2028e\u2029f\u0085g € Ж☺"));
    EXPECT_EQ(box->text(), QStringLiteral("a  b c d e f g € ")) << box->objectName().toStdString();
  }
  EXPECT_EQ(document.Info().name, "a  b c d e f g \x80 ");
  Paste(Get<QLineEdit>("txtSongInfo(2)"), QString(200, 'w') + "end");
  Get<QWidget>("txtSongInfo(2)").setFocus();
  Get<QWidget>("txtRight").setFocus();
  EXPECT_EQ(Get<QLineEdit>("txtSongInfo(2)").cursorPosition(), 0) << "a long name shows its beginning";
}

TEST_F(MainWindowEntry, TheWheelOverTheVolumeGoesOnFromSeven) {
  auto& volume = Get<QComboBox>("cboVolume");
  EXPECT_EQ(volume.currentText(), "7");
  EXPECT_EQ(volume.itemText(15), "15");
  const QPointF place = volume.rect().center();
  for (const auto& [turn, shown] : {std::pair{120, "6"}, {-120, "7"}, {-120, "8"}}) {
    QWheelEvent wheel(place, volume.mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&volume, &wheel);
    EXPECT_EQ(volume.currentText(), shown);
  }
}

TEST_F(MainWindowEntry, RtttlShowsTheDefaultsCrossedAndLeavesThemOutOnRequest) {
  SetMode(FormatMode::Rtttl);
  Press("optDuration(3)");
  Enter("cde");
  EXPECT_EQ(Shown(), "8C6 8D6 8E6|");
  EXPECT_EQ(Get<QLabel>("lblSongInfo(3)").text(), "Duration (Default)");
  EXPECT_EQ(Text("txtSongInfo(3)"), "6");
  EXPECT_EQ(Text("txtSongInfo(4)"), "8");
  Trigger("mnuRTTTLUseDefault");
  EXPECT_EQ(Shown(), "8C6 8D6 8E6|");  // the item itself changes nothing in the view
  Press("cmdLeft");
  EXPECT_EQ(Shown(), "C D|E");
}

}  // namespace
}  // namespace trillomat
