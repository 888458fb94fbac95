// The import window, driven through its controls.
#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "support/fakes.h"
#include "ui/dialog_probe.h"
#include "ui/frm_import.h"

namespace trillomat {
namespace {

using testing::IsEmpty;

constexpr const char* kTune = "test:d=4,o=5,b=100:c,p,h";
const std::vector<std::string> kTuneLog{"1: Critical Error in GetDefault RTTTL", "1: Last Note?\?-->b"};

class ImportWindow : public testing::Test {
 protected:
  ImportWindow() { window.show(); }

  void Select(int option) { Click(window, qPrintable(QStringLiteral("optImport(%1)").arg(option))); }
  void SetSource(const char* text) { source.setPlainText(text); }

  FakeWorkspace fake;
  Workspace& ws = fake.ws;
  frmImport window{ws};
  QPlainTextEdit& source = Control<QPlainTextEdit>(window, "txtSource");
  QPushButton& import = Control<QPushButton>(window, "cmdImport");
};

TEST_F(ImportWindow, OpensEmptyOnNokiaAndNamesItsControls) {
  FakeWorkspace other;
  other.ws.ImportMelody.emplace_back();
  const frmImport fresh(other.ws);
  EXPECT_THAT(other.ws.ImportMelody, IsEmpty());
  EXPECT_FALSE(import.isEnabled());
  EXPECT_EQ(source.toPlainText(), "");
  EXPECT_EQ(window.focusWidget(), &source);
  EXPECT_TRUE(Control<QRadioButton>(window, "optImport(0)").isChecked());
  EXPECT_FALSE(Control<QCheckBox>(window, "chkAdapt").isChecked());
  ExpectUsable(window, "frmImport", "Trillomat - Import");
}

TEST_F(ImportWindow, EnablesImportByFormatAndText) {
  struct Step {
    int option;
    const char* text;
    bool enabled;
  };
  // Each step starts from the state of the one before.
  for (const Step& step :
       {Step{0, "a:b", false}, Step{0, "a,b", false}, Step{0, ":,", true}, Step{2, ":,", true},
        Step{2, "", true}, Step{3, "c", true}, Step{4, "c", true}, Step{1, "c", false}, Step{1, "cd", true},
        Step{0, "cd", false}, Step{2, "cdefg", false}, Step{4, "a:b,c", false}, Step{3, "", false},
        Step{1, "", false}, Step{1, "\xC3\xA9\xE2\x82\xAC", true}}) {
    Select(step.option);
    SetSource(step.text);
    EXPECT_EQ(import.isEnabled(), step.enabled) << step.option << " " << step.text;
  }
}

TEST_F(ImportWindow, ImportsEachFormatAndCloses) {
  struct Case {
    int option;
    const char* text;
    size_t elements;
    const char* name;
    int bpm;
    std::vector<std::string> log;
  };
  const std::vector<std::string> refused{"1: Error in Convert_RTTTL", "1: Failed to make the import"};
  for (const Case& c : {Case{0, kTune, 3, "test", 100, kTuneLog}, Case{0, "a:b,c", 0, "", 100, refused},
                        Case{1, "c\nd P", 3, "Unknown", 200, {}}, Case{2, "+c#d", 2, "Unknown", 200, {}},
                        Case{3, "cd", 0, "", 100, {}}, Case{4, "cd", 0, "", 100, {}}}) {
    FakeWorkspace f;
    frmImport w(f.ws);
    w.show();
    Control<QPlainTextEdit>(w, "txtSource").setPlainText(c.text);
    Click(w, "optImport(1)");  // enables the button, which most formats then leave so
    Click(w, qPrintable(QStringLiteral("optImport(%1)").arg(c.option)));
    Click(w, "cmdImport");
    EXPECT_FALSE(w.isVisible()) << c.text;
    EXPECT_EQ(f.ws.ImportMelody.size(), c.elements) << c.text;
    EXPECT_EQ(f.ws.header.Name, c.name);
    EXPECT_EQ(f.ws.header.BPM, c.bpm);
    EXPECT_EQ(f.log.lines, c.log);
    EXPECT_EQ(w.Refusal().isEmpty(), c.log != refused);
  }
}

TEST_F(ImportWindow, AdaptsForTheT68iOrSaysWhyNot) {
  struct Case {
    const char* text;
    std::vector<int> octaves;
    bool refused;
  };
  for (const Case& c :
       {Case{"t:d=4,o=4,b=100:c,d5", {4, 5}, false}, Case{"t:d=4,o=3,b=100:c,d8", {1, 6}, true}}) {
    FakeWorkspace f;
    frmImport w(f.ws);
    w.show();
    Control<QPlainTextEdit>(w, "txtSource").setPlainText(c.text);
    Control<QCheckBox>(w, "chkAdapt").click();
    Click(w, "cmdImport");
    std::vector<int> octaves;
    for (const MelodyNote& note : f.ws.ImportMelody) octaves.push_back(note.Octave);
    EXPECT_EQ(octaves, c.octaves);
    EXPECT_EQ(f.log.lines.back() == "1: Failed to make the adaption", c.refused);
    EXPECT_EQ(w.Refusal().isEmpty(), !c.refused);
  }
}

TEST_F(ImportWindow, EveryWayOutImportsNothing) {
  for (void (*leave)(QDialog&) : {+[](QDialog& w) { Click(w, "cmdCancel"); }, &PressEscape, &CloseFrame}) {
    SetSource(kTune);
    leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_THAT(ws.ImportMelody, IsEmpty());
    EXPECT_EQ(ws.header, SongHeader());
    window.show();
  }
}

TEST_F(ImportWindow, IgnoresPressesAndTypingWhileItImports) {
  fake.pump.onPump = [this](int) {
    SetSource("other:d=4:e,e,e,e,e");
    Click(window, "cmdImport");
  };
  SetSource(kTune);
  Click(window, "cmdImport");
  EXPECT_EQ(ws.ImportMelody.size(), 3U);
  EXPECT_EQ(ws.header.Name, "test");
  EXPECT_EQ(fake.log.lines, kTuneLog);
}

TEST_F(ImportWindow, ClosedInTheMiddleOfAnImportItKeepsNothing) {
  fake.pump.onPump = [this](int) {
    window.close();
    EXPECT_TRUE(window.isVisible()) << "the main window would take clicks now";
  };
  SetSource(kTune);
  Click(window, "cmdImport");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Rejected);
  EXPECT_THAT(ws.ImportMelody, IsEmpty());
  EXPECT_EQ(ws.header, SongHeader());
}

TEST_F(ImportWindow, TakesAMegabyteInOneLine) {
  QString text = "long:d=4,o=5,b=100:c";
  while (text.size() < 1'000'000) text += ",16c#6";
  const auto notes = static_cast<size_t>(text.count(',')) - 1;
  QApplication::clipboard()->setText(text);
  QElapsedTimer clock;
  clock.start();
  QTest::keySequence(&source, QKeySequence::Paste);
  window.grab();
  EXPECT_LT(clock.elapsed(), 8000) << "ms; broken between words it takes half a minute";
  Click(window, "cmdImport");
  EXPECT_EQ(ws.ImportMelody.size(), notes);
}

TEST_F(ImportWindow, TellsHowManyCharactersItReplaces) {
  const auto& label = Control<QLabel>(window, "lblReplaced");
  SetSource("na\xC3\xAFve \xE2\x82\xAC:,");
  EXPECT_FALSE(label.isVisible());
  SetSource("\xE2\x86\x92 \xF0\x9D\x84\x9E\xE2\x99\xAF:d=4:c,d");
  EXPECT_TRUE(label.isVisible());
  EXPECT_TRUE(label.text().startsWith("3 characters ")) << label.text().toStdString();
  Click(window, "cmdImport");
  EXPECT_EQ(ws.header.Name, "???");
}

}  // namespace
}  // namespace trillomat
