// The export window, driven through its controls.
#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QPlainTextEdit>
#include <QPushButton>

#include "support/fakes.h"
#include "support/sample_notes.h"
#include "ui/dialog_probe.h"
#include "ui/frm_export.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kNokiaKeys = "0--> Press: 1\r\n1--> Press: 2 8\r\n";

class ExportWindow : public testing::Test {
 protected:
  ExportWindow() {
    ws.header.Name = "Caf\xE9";
    ws.melody.Assign({Tone("c", 4), Tone("d", 4, 0.5F)});
    window.show();
  }

  void Export(int index) { Click(window, IndexedName("cmdExport", index)); }
  static QString Shown(const std::string& text) { return ToQString(text).replace("\r\n", "\n"); }
  static QString Clipboard() { return QApplication::clipboard()->text().remove('\r'); }

  FakeWorkspace fake;
  Workspace& ws = fake.ws;
  frmExport window{ws};
  QPlainTextEdit& result = Control<QPlainTextEdit>(window, "txtResult");
  QPushButton& save = Control<QPushButton>(window, "cmdSaveToFile");
  QLabel& status = Control<QLabel>(window, "lblStatus");
};

TEST_F(ExportWindow, OpensEmptyAndNamesItsControls) {
  EXPECT_FALSE(save.isEnabled());
  EXPECT_EQ(result.toPlainText(), "");
  EXPECT_TRUE(result.isReadOnly());
  const QFontMetrics font(result.font());
  EXPECT_EQ(font.horizontalAdvance("iiii"), font.horizontalAdvance("WWWW"));
  ExpectUsable(window, "frmExport", "Trillomat - Export");
}

TEST_F(ExportWindow, EachButtonMakesItsText) {
  struct Case {
    const char* caption;
    const char* start;
    bool saves;
  };
  const Case cases[] = {{"T68i KeyPress", "0--> Press: 1\r\n1--> Press: 28\r\n", false},
                        {"T39 KeyPress", "0--> Hold: 1 until lowercase", false},
                        {"Nokia Composer", kNokiaKeys, false},
                        {"RTTTL", "Caf\xE9:d=4,o=6,b=100:C,8D", false},
                        {"Nokia Composer", "", false},
                        {"MIDI", "", true},
                        {"WAVE", "", true},
                        {"R320 / T28", "0--> Hold: 1 until uppercase", false}};
  const MelodyList composed = ws.melody.Elements();
  // Twice, so that each button also finds what another one left.
  for (int i = 0; i < 16; ++i) {
    const Case& c = cases[i % 8];
    SCOPED_TRACE(c.caption);
    Export(i % 8);
    save.click();  // does nothing
    EXPECT_EQ(Control<QPushButton>(window, IndexedName("cmdExport", i % 8)).text().remove('&'), c.caption);
    EXPECT_THAT(window.Result(), StartsWith(c.start));
    EXPECT_EQ(window.Result().empty(), *c.start == '\0');
    EXPECT_EQ(result.toPlainText(), Shown(window.Result()));
    EXPECT_EQ(save.isEnabled(), c.saves);
    EXPECT_EQ(status.text().isEmpty(), *c.start == '\0');
  }
  EXPECT_EQ(ws.melody.Elements(), composed);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ExportWindow, SaysWhyAMelodyDoesNotFitAndLeavesTheResultEmpty) {
  ws.melody.Assign(Tones({3, 5}));
  Export(0);
  EXPECT_THAT(window.Result(), StartsWith("All notes have been moved 1 (scale) \r\n0--> "));
  Export(7);
  EXPECT_EQ(result.toPlainText(), "");
  EXPECT_TRUE(status.text().contains("the R320 and T28")) << status.text().toStdString();
  EXPECT_EQ(ws.melody.Elements(), Tones({3, 5}));
}

TEST_F(ExportWindow, CopiesAllOrTheSelectionAndEnterPressesNoButton) {
  Export(2);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  // From the button that has the focus, then from the box, then with a line selected there.
  Control<QPushButton>(window, "cmdExport(2)").setFocus();
  for (QWidget* focus : {static_cast<QWidget*>(&window), static_cast<QWidget*>(&result)}) {
    QApplication::clipboard()->clear();
    result.moveCursor(QTextCursor::Start);
    QTest::keySequence(focus, QKeySequence::Copy);
    EXPECT_EQ(Clipboard(), Shown(kNokiaKeys));
  }
  result.moveCursor(QTextCursor::Start);
  result.moveCursor(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
  QTest::keySequence(&result, QKeySequence::Copy);
  EXPECT_EQ(Clipboard(), "0--> Press: 1");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(&result, key);
  EXPECT_EQ(window.Result(), kNokiaKeys);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ExportWindow, EveryWayOutEmptiesTheCopyAlone) {
  for (void (*leave)(QDialog&) : {+[](QDialog& w) { Click(w, "cmdAbort"); }, &PressEscape, &CloseFrame}) {
    frmExport w(ws);
    w.show();
    Click(w, "cmdExport(3)");
    leave(w);
    EXPECT_FALSE(w.isVisible());
    EXPECT_THAT(ws.ExportMelody, IsEmpty());
    EXPECT_EQ(ws.melody.UpperBound(), 1);
  }
}

TEST_F(ExportWindow, IgnoresPressesWhileItExportsAndClosesAfterwards) {
  fake.pump.onPump = [this](int) {
    Export(3);
    Export(6);
  };
  Export(2);
  EXPECT_EQ(window.Result(), kNokiaKeys);
  EXPECT_FALSE(save.isEnabled());
  fake.pump.pumps = 0;
  fake.pump.onPump = [this](int) {
    window.close();
    EXPECT_TRUE(window.isVisible());
  };
  Export(2);
  EXPECT_EQ(fake.pump.pumps, 1) << "the export goes on";
  EXPECT_FALSE(window.isVisible());
  EXPECT_THAT(ws.ExportMelody, IsEmpty());
}

}  // namespace
}  // namespace trillomat
