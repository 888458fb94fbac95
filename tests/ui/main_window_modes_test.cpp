// Format modes and song information in the main window.
#include <gmock/gmock.h>

#include <QClipboard>

#include "ui/main_window.h"

namespace trillomat {
namespace {

class MainWindowModes : public MainWindowTest {
 protected:
  /// Which members of an indexed group are enabled, "x" or ".".
  std::string Enabled(const char* group, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += Get<QWidget>(IndexedName(group, i)).isEnabled() ? 'x' : '.';
    return text;
  }
  int Checked(const char* group, int count) {
    for (int i = 0; i < count; ++i) {
      if (Get<QRadioButton>(IndexedName(group, i)).isChecked()) return i;
    }
    return -1;
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
    int octave;  // of the slider, which stood at 8
    const char* durations;
    int duration;  // selected, after 1/16
    const char* extras;
    int extra;  // selected, after "Dotted note"
    bool commands;
    QStringList rows;
  };
  const QStringList imelody{"Version", "Format", "Name", "Composer", "B P M", "Style", "Volume"};
  const QStringList rtttl{"Name", "B P M", "Repeat", "Duration (Default)", "Octave (Default)", "Style"};
  for (const Case& c :
       {Case{FormatMode::EMelody, "Only octave 3-5 supported", 5, "xxxx..", 2, "....", 0, false, {}},
        Case{FormatMode::Rtttl, "Only octave 3-6 supported", 6, "xxxxxx", 4, "xx..", 0, false, rtttl},
        Case{FormatMode::Melody, "Only octave 3-4 supported", 4, "..xx..", 3, "....", 0, false, {}},
        Case{FormatMode::IMelody, "", 8, "xxxxxx", 4, "xxxx", 1, true, imelody}}) {
    SetMode(FormatMode::IMelody);
    Press("optDuration(4)");
    Press("optDurationExtra(1)");
    Get<QSlider>("SliderOctave").setValue(8);
    SetMode(c.mode);
    SCOPED_TRACE(static_cast<int>(c.mode));
    EXPECT_EQ(Get<QLabel>("lbl(2)").text(), c.rangeNote);
    EXPECT_EQ(Get<QSlider>("SliderOctave").value(), c.octave);
    EXPECT_EQ(Get<QLabel>("lbl(1)").text(), QString::number(c.octave));
    EXPECT_EQ(Enabled("optDuration", 6), c.durations);
    EXPECT_EQ(Checked("optDuration", 6), c.duration);
    EXPECT_EQ(Enabled("optDurationExtra", 4), c.extras);
    EXPECT_EQ(Checked("optDurationExtra", 4), c.extra);
    EXPECT_EQ(Enabled("cmdInsert", 11), std::string(11, c.commands ? 'x' : '.'));
    EXPECT_EQ(Get<QComboBox>("cboVolume").isEnabled(), c.commands);
    EXPECT_EQ(Rows(), c.rows);
#ifndef _WIN32  // Wine without a screen has only letters that are half again as wide
    EXPECT_LE(window.minimumSizeHint().width(), 1024);
    EXPECT_LE(window.minimumSizeHint().height(), 700);
#endif
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(Action(IndexedName("mnuSettingFormatType", i)).isChecked(), i == static_cast<int>(c.mode));
    }
    EXPECT_EQ(ws.header.BPM == 200, c.mode == FormatMode::EMelody || c.mode == FormatMode::Melody);
    ws.header.BPM = 100;
  }
}

TEST_F(MainWindowModes, ListsAndTextsStartAsGiven) {
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(0)").currentText(), "S0: Natural Style");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").currentText(), "V10");
  EXPECT_EQ(Get<QComboBox>("cboSongInfo(1)").count(), 16);
  EXPECT_EQ(Get<QComboBox>("cboVolume").currentText(), "7");
  EXPECT_EQ(Get<QComboBox>("cboVolume").itemText(15), "15");
  EXPECT_EQ(Text("txtSongInfo(0)"), "1.2");
  EXPECT_EQ(Text("txtSongInfo(1)"), "Class 1.0");
  EXPECT_EQ(Text("txtSongInfo(4)"), "100");
  EXPECT_FALSE(Get<QLineEdit>("txtSongInfo(0)").isEnabled());
  EXPECT_FALSE(Get<QLineEdit>("txtSongInfo(1)").isEnabled());
  EXPECT_EQ(Get<QAbstractButton>("cmdTone(9)").text(), "\r\n\r\n\r\nA");
}

TEST_F(MainWindowModes, TempoAndRepeatAreTakenWhenTheyAreInRange) {
  struct Case {
    FormatMode mode;
    const char* box;
    const char* typed;
    const char* shown;
    bool red;
    int value;
  };
  for (const Case& c : {Case{FormatMode::IMelody, "txtSongInfo(4)", "2", "2", true, 100},
                        Case{FormatMode::IMelody, "txtSongInfo(4)", "20", "20", true, 100},
                        Case{FormatMode::IMelody, "txtSongInfo(4)", "2x0-0", "200", false, 200},
                        Case{FormatMode::IMelody, "txtSongInfo(4)", "901", "901", true, 90},
                        Case{FormatMode::IMelody, "txtSongInfo(4)", "", "", true, 90},
                        Case{FormatMode::Rtttl, "txtSongInfo(1)", "25", "25", false, 25},
                        Case{FormatMode::Rtttl, "txtSongInfo(2)", "15", "15", false, 15},
                        Case{FormatMode::Rtttl, "txtSongInfo(2)", "16", "16", true, 1},
                        Case{FormatMode::Rtttl, "txtSongInfo(2)", "a", "", true, 1}}) {
    SCOPED_TRACE(c.typed);
    if (ws.iNoteMode != c.mode) SetMode(c.mode);
    Type(c.box, c.typed);
    EXPECT_EQ(Text(c.box), c.shown);
    EXPECT_EQ(IsRed(c.box), c.red);
    const bool repeat = c.box == std::string("txtSongInfo(2)");
    EXPECT_EQ(repeat ? ws.header.Loop : ws.header.BPM, c.value);
  }
}

TEST_F(MainWindowModes, PastedTextPassesTheKeyFilterButIsNoTempo) {
  Get<QLineEdit>("txtSongInfo(4)").setText("fast");
  EXPECT_TRUE(IsRed("txtSongInfo(4)"));
  EXPECT_EQ(ws.header.BPM, 100);
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

TEST_F(MainWindowModes, WhatTheModeLacksStaysAndIsMarked) {
  Get<QSlider>("SliderOctave").setValue(8);
  Press("optDuration(2)");
  Enter("c");
  SetMode(FormatMode::Melody);
  EXPECT_EQ(Shown().front(), '[');
  SetMode(FormatMode::IMelody);
  EXPECT_EQ(Shown(), "*8c2|");
}

}  // namespace
}  // namespace trillomat
