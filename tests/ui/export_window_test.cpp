// The export window, driven through its controls.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <array>

#include "support/fakes.h"
#include "ui/dialog_probe.h"
#include "ui/frm_export.h"

namespace trillomat {
namespace {

using testing::IsEmpty;

constexpr const char* kNokiaKeys = "0--> Press: 1\r\n1--> Press: 2 8\r\n";

MelodyNote Tone(const char* note, int16_t octave, float duration = 1.0F) {
  return {.Octave = octave, .Note = note, .Special = {}, .DurationExtra = 1.0F, .Duration = duration};
}

QString Shown(const char* text) { return QString::fromLatin1(text).replace("\r\n", "\n"); }

class ExportWindow : public testing::Test {
 protected:
  ExportWindow() {
    ws.header.Name = "Caf\xE9";
    ws.melody.Assign({Tone("c", 4), Tone("d", 4, 0.5F)});
    window.show();
  }

  void Export(size_t index) { Click(window, qPrintable(QStringLiteral("cmdExport(%1)").arg(index))); }
  static QString Clipboard() { return QApplication::clipboard()->text(); }

  FakeWorkspace fake;
  Workspace& ws = fake.ws;
  frmExport window{ws};
  QPlainTextEdit& result = Control<QPlainTextEdit>(window, "txtResult");
  QPushButton& save = Control<QPushButton>(window, "cmdSaveToFile");
  QLabel& status = Control<QLabel>(window, "lblStatus");
};

TEST_F(ExportWindow, OpensEmptyAndNamesItsControls) {
  EXPECT_TRUE(Control<QPushButton>(window, "cmdExport(0)").isEnabled());
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
    const char* text;
    bool saves;
  };
  const std::array<Case, 8> cases{
      {{"T68i KeyPress", "0--> Press: 1\r\n1--> Press: 28\r\n", false},
       {"T39 KeyPress",
        "0--> Hold: 1 until lowercase with a \".\" Then press: 0\r\n1--> Press: 2 Then press: 0\r\n", false},
       {"Nokia Composer", kNokiaKeys, false},
       {"RTTTL", "Caf\xE9:d=4,o=6,b=100:C,8D", false},
       {"Nokia Composer", "", false},
       {"MIDI", "", true},
       {"WAVE", "", true},
       {"R320 / T28", "0--> Hold: 1 until uppercase. Then press: 0\r\n1--> Press: 2 Then press: 0\r\n",
        false}}};
  const MelodyList composed = ws.melody.Elements();
  // Twice, so that each button also finds what another one left.
  for (size_t i = 0; i < 2 * cases.size(); ++i) {
    const Case& c = cases.at(i % cases.size());
    Export(i % cases.size());
    QString caption =
        Control<QPushButton>(window, qPrintable(QStringLiteral("cmdExport(%1)").arg(i % 8))).text();
    EXPECT_EQ(caption.remove('&'), c.caption);
    EXPECT_EQ(window.Result(), c.text) << c.caption;
    EXPECT_EQ(result.toPlainText(), Shown(c.text));
    EXPECT_EQ(save.isEnabled(), c.saves) << c.caption;
    EXPECT_EQ(ws.ExportMelody.size(), composed.size());
    EXPECT_EQ(status.text().isEmpty(), *c.text == '\0');
  }
  EXPECT_EQ(ws.melody.Elements(), composed);
}

TEST_F(ExportWindow, SaveToFileDoesNothing) {
  Export(6);
  Click(window, "cmdSaveToFile");
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(save.isEnabled());
  EXPECT_EQ(window.Result(), "");
  EXPECT_THAT(fake.log.lines, IsEmpty());
}

TEST_F(ExportWindow, SaysWhyAMelodyDoesNotFitAndLeavesTheResultEmpty) {
  ws.melody.Assign({Tone("c", 3), Tone("c", 5)});
  const MelodyList composed = ws.melody.Elements();
  Export(0);
  EXPECT_THAT(window.Result(), testing::StartsWith("All notes have been moved 1 (scale) \r\n0--> "));
  Export(7);
  EXPECT_EQ(result.toPlainText(), "");
  EXPECT_TRUE(status.text().contains("the R320 and T28")) << status.text().toStdString();
  EXPECT_EQ(ws.melody.Elements(), composed);
}

TEST_F(ExportWindow, CopiesAllOrTheSelection) {
  Export(2);
  const QString all = Shown(kNokiaKeys);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  // From the button that has the focus, then from the box, then with everything selected there.
  Control<QPushButton>(window, "cmdExport(2)").setFocus();
  for (QWidget* focus : {static_cast<QWidget*>(&window), static_cast<QWidget*>(&result)}) {
    QApplication::clipboard()->clear();
    result.moveCursor(QTextCursor::Start);
    QTest::keySequence(focus, QKeySequence::Copy);
    EXPECT_EQ(Clipboard().remove('\r'), all);
  }
  QTest::keySequence(&result, QKeySequence::SelectAll);
  QTest::keySequence(&result, QKeySequence::Copy);
  EXPECT_EQ(Clipboard().remove('\r'), all);
  result.moveCursor(QTextCursor::Start);
  result.moveCursor(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
  QTest::keySequence(&result, QKeySequence::Copy);
  EXPECT_EQ(Clipboard(), "0--> Press: 1");
}

TEST_F(ExportWindow, EnterInTheResultPressesNoButton) {
  Export(3);
  const std::string text = window.Result();
  result.setFocus();
  QTest::keyClick(&result, Qt::Key_Return);
  QTest::keyClick(&result, Qt::Key_Enter);
  EXPECT_EQ(window.Result(), text);
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

TEST_F(ExportWindow, IgnoresPressesWhileItExports) {
  fake.pump.onPump = [this](int) {
    Export(3);
    Export(6);
  };
  Export(2);
  EXPECT_EQ(window.Result(), kNokiaKeys);
  EXPECT_FALSE(save.isEnabled());
}

TEST_F(ExportWindow, ClosedInTheMiddleItStaysUntilTheExportHasEnded) {
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
