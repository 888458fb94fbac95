// Format modes and song information in the main window.
#include <QClipboard>

#include "ui/main_window.h"

namespace trillomat {
namespace {

class MainWindowModes : public MainWindowTest {
 protected:
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
  /// The captions of the visible rows of the song information.
  QStringList Rows() {
    QStringList captions;
    for (int i = 0; i < 7; ++i) {
      auto& label = Get<QLabel>(IndexedName("lblSongInfo", i));
      EXPECT_EQ(label.isVisible(), label.buddy()->isVisible());
      if (label.isVisible()) captions << label.text().remove('&');
    }
    return captions;
  }
  bool IsRed(const QString& name) {
    return Get<QLineEdit>(name).palette().color(QPalette::Text) == QColor(255, 0, 0);
  }
  void Type(const QString& name, const QString& text) {
    auto& box = Get<QLineEdit>(name);
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
  }
};

TEST_F(MainWindowModes, EachModeOffersWhatItCanHold) {
  struct Case {
    FormatMode mode;
    const char* rangeNote;
    int octave;             // of the slider, which stood at 8
    const char* durations;  // 1/16 was selected
    const char* extras;     // "Dotted note" was selected
    QStringList rows;
  };
  const QStringList imelody{"Version", "Format", "Name", "Composer", "B P M", "Style", "Volume"};
  const QStringList rtttl{"Name", "B P M", "Repeat", "Duration (Default)", "Octave (Default)", "Style"};
  for (const Case& c : {Case{FormatMode::EMelody, "Only octave 3-5 supported", 5, "xxXx..", "X...", {}},
                        Case{FormatMode::Rtttl, "Only octave 3-6 supported", 6, "xxxxXx", "Xx..", rtttl},
                        Case{FormatMode::Melody, "Only octave 3-4 supported", 4, "..xX..", "X...", {}},
                        Case{FormatMode::IMelody, "", 8, "xxxxXx", "xXxx", imelody}}) {
    SetMode(FormatMode::IMelody);
    Press("optDuration(4)");
    Press("optDurationExtra(1)");
    Get<QSlider>("SliderOctave").setValue(8);
    SetMode(c.mode);
    SCOPED_TRACE(static_cast<int>(c.mode));
    EXPECT_EQ(Get<QLabel>("lbl(2)").text(), c.rangeNote);
    EXPECT_EQ(Get<QSlider>("SliderOctave").value(), c.octave);
    EXPECT_EQ(Get<QLabel>("lbl(1)").text(), QString::number(c.octave));
    EXPECT_EQ(State("optDuration", 6), c.durations);
    EXPECT_EQ(State("optDurationExtra", 4), c.extras);
    EXPECT_EQ(State("cmdInsert", 11), std::string(11, c.mode == FormatMode::IMelody ? 'x' : '.'));
    EXPECT_EQ(Get<QComboBox>("cboVolume").isEnabled(), c.mode == FormatMode::IMelody);
    EXPECT_EQ(Rows(), c.rows);
#ifndef _WIN32  // Wine without a screen has only letters that are half again as wide
    EXPECT_LE(window.minimumSizeHint().width(), 1024);
    EXPECT_LE(window.minimumSizeHint().height(), 700);
#endif
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(Action(IndexedName("mnuSettingFormatType", i)).isChecked(), i == static_cast<int>(c.mode));
    }
  }
}

TEST_F(MainWindowModes, ListsAndTextsStartAsGiven) {
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S0: Natural Style");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").currentText(), "V10");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").count(), 16);
  EXPECT_EQ(Get<QComboBox>("cboVolume").currentText(), "7");
  EXPECT_EQ(Get<QComboBox>("cboVolume").itemText(15), "15");
  EXPECT_EQ(Text("txtSongInfo(1)"), "Class 1.0");
  EXPECT_EQ(State("txtSongInfo", 5), "..xxx");
  EXPECT_EQ(Get<QAbstractButton>("cmdTone(9)").text(), "\r\n\r\n\r\nA");
}

TEST_F(MainWindowModes, TempoAndRepeatAreTakenWhenTheyAreInRange) {
  Type("txtSongInfo(4)", "2x0-0");
  EXPECT_EQ(Text("txtSongInfo(4)"), "200");
  EXPECT_FALSE(IsRed("txtSongInfo(4)"));
  EXPECT_EQ(ws.header.BPM, 200);
  Get<QLineEdit>("txtSongInfo(4)").setText("fast");  // pasted text passes the key filter
  EXPECT_TRUE(IsRed("txtSongInfo(4)"));
  EXPECT_EQ(ws.header.BPM, 200);
  SetMode(FormatMode::Rtttl);
  Type("txtSongInfo(2)", "1a6");
  EXPECT_EQ(Text("txtSongInfo(2)"), "16");
  EXPECT_TRUE(IsRed("txtSongInfo(2)"));
  EXPECT_EQ(ws.header.Loop, 1);
}

TEST_F(MainWindowModes, NamesAreTakenInTheProgramsCodePage) {
  QApplication::clipboard()->setText(QStringLiteral("Frère €Ж☺"));
  Get<QLineEdit>("txtSongInfo(2)").clear();
  Get<QLineEdit>("txtSongInfo(2)").paste();
  Type("txtSongInfo(3)", "Bach");
  EXPECT_EQ(Text("txtSongInfo(2)"), QStringLiteral("Frère €"));
  EXPECT_EQ(ws.header.Name, "Fr\xE8re \x80");
  EXPECT_EQ(ws.header.Composer, "Bach");
  Get<QComboBox>("cboSongInfo(0)").setCurrentIndex(2);
  Get<QComboBox>("cboSongInfo(1)").setCurrentIndex(3);
  EXPECT_EQ(ws.header.Style, "S2");
  EXPECT_EQ(ws.header.Volume, "V3");
  SetMode(FormatMode::Rtttl);
  EXPECT_EQ(Text("txtSongInfo(0)"), QStringLiteral("Frère €"));
}

TEST_F(MainWindowModes, RtttlShowsTheDefaultsCrossedAndLeavesThemOutOnRequest) {
  SetMode(FormatMode::Rtttl);
  Press("optDuration(3)");
  Get<QSlider>("SliderOctave").setValue(4);
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
