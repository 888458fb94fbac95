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
};

TEST_F(MainWindowEntry, EveryKeyAndCommandInsertsItsElementAtTheCursor) {
  Enter("cCdDefFgGaAb-");
  EXPECT_EQ(Shown(), "*4d2 *4#d2 *4e2 *4f2 *4#f2 *4g2 *4#g2 *4a2 *4#a2 *4b2 r2|");
  EXPECT_EQ(sound.beeps.size(), 12U);  // a pause is not sounded
  Press("cmdControl(0)");
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

TEST_F(MainWindowEntry, EveryEditingControlDoesItsWork) {
  Press("optDurationExtra(1)");
  Get<QSlider>("SliderOctave").setValue(5);
  EXPECT_EQ(Get<QLabel>("lbl(1)").text(), "5");
  Enter("cde");
  for (const auto& [button, shown] : {std::pair{"cmdLeft", "*5c2. *5d2.|*5e2."},
                                      {"cmdDuration", "*5c2. *5d3.|*5e2."},
                                      {"cmdLowHigh", "*5c2. *5#d3.|*5e2."},
                                      {"cmdScaleUP", "*6c2. *6#d3.|*6e2."},
                                      {"cmdScaleDown", "*5c2. *5#d3.|*5e2."},
                                      {"cmdRight", "*5c2. *5#d3. *5e2.|"},
                                      {"cmdEraseLeft", "*5c2. *5#d3.|"},
                                      {"cmdControl(1)", "|*5c2. *5#d3."},
                                      {"cmdEraseRight", "|*5#d3."},
                                      {"cmdControl(5)", "*5#d3.|"}}) {
    Press(button);
    EXPECT_EQ(Shown(), shown) << button;
    EXPECT_EQ(Get<QLineEdit>("txtLeft").cursorPosition(), Text("txtLeft").size());
    EXPECT_EQ(Get<QLineEdit>("txtRight").cursorPosition(), Text("txtRight").isEmpty() ? 0 : 1);
  }
  EXPECT_TRUE(Get<QRadioButton>("optDuration(3)").isChecked());
  EXPECT_EQ(Text("txtLeft"), "   *5#d3.");
}

TEST_F(MainWindowEntry, TheSongInformationIsTakenOverAsItIsTyped) {
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S0: Natural Style");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").currentText(), "V10");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Get<QWidget>(IndexedName("txtSongInfo", i)).isEnabled(), i >= 2);
  Type("txtSongInfo(2)", "Tune");
  Type("txtSongInfo(3)", "Bach");
  Type("txtSongInfo(4)", "2x0-0");
  EXPECT_EQ(Text("txtSongInfo(4)"), "200");
  Get<QComboBox>("cboSongInfo(0)").setCurrentIndex(2);
  Get<QComboBox>("cboSongInfo(1)").setCurrentIndex(3);
  const SongInfo taken{.name = "Tune", .composer = "Bach", .bpm = 200, .style = "S2", .volume = "V3"};
  EXPECT_EQ(document.Info(), taken);
  EXPECT_EQ(record.info, taken);
  for (const auto& [pasted, valid] : {std::pair{"fast", false}, {"901", false}, {"900", true}}) {
    Get<QLineEdit>("txtSongInfo(4)").setText(pasted);  // it passes the key filter
    const QColor ink = Get<QLineEdit>("txtSongInfo(4)").palette().color(QPalette::Text);
    EXPECT_EQ(ink == QColor(255, 0, 0), !valid) << pasted;
  }
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

}  // namespace
}  // namespace trillomat
