// The import window, driven through its controls.
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
#include "ui/qt_text.h"

namespace trillomat {
namespace {

using testing::IsEmpty;

constexpr const char* kTune = "test:d=4,o=5,b=100:c,p,h";

class ImportWindow : public testing::Test {
 protected:
  ImportWindow() { window.show(); }

  void SetSource(const char* text) { source.setPlainText(text); }

  FakeWorkspace fake;
  Workspace& ws = fake.ws;
  frmImport window{ws};
  QPlainTextEdit& source = Control<QPlainTextEdit>(window, "txtSource");
  QPushButton& import = Control<QPushButton>(window, "cmdImport");
};

TEST_F(ImportWindow, OpensEmptyOnNokiaAndNamesItsControls) {
  EXPECT_FALSE(import.isEnabled());
  EXPECT_EQ(source.toPlainText(), "");
  EXPECT_EQ(window.focusWidget(), &source);
  EXPECT_TRUE(Control<QRadioButton>(window, "optImport(0)").isChecked());
  EXPECT_FALSE(Control<QCheckBox>(window, "chkAdapt").isChecked());
  ExpectUsable(window, "frmImport", "Trillomat - Import");
  SetSource("a:b");
  EXPECT_FALSE(import.isEnabled());
  SetSource("a:b,");
  EXPECT_TRUE(import.isEnabled());
}

TEST_F(ImportWindow, ImportsEachFormatAndCloses) {
  struct Case {
    int option;
    const char* text;
    const char* octaves;  // of the imported elements
    const char* name;
    bool refused = false;
    bool adapt = false;
  };
  for (const Case& c :
       {Case{0, kTune, "3 -1 3 ", "test"}, Case{0, "a:b,c", "", "", true},
        Case{0, "t:d=4,o=4,b=100:c,d5", "4 5 ", "t", false, true},
        Case{0, "t:d=4,o=3,b=100:c,d8", "1 6 ", "t", true, true}, Case{1, "c\nd P", "3 3 3 ", "Unknown"},
        Case{2, "+c#d", "4 3 ", "Unknown"}, Case{3, "cd", "", ""}, Case{4, "cd", "", ""}}) {
    SCOPED_TRACE(c.text);
    FakeWorkspace f;
    frmImport w(f.ws);
    w.show();
    Control<QPlainTextEdit>(w, "txtSource").setPlainText(c.text);
    Click(w, "optImport(1)");  // enables the button, which most formats then leave so
    Click(w, IndexedName("optImport", c.option));
    Control<QCheckBox>(w, "chkAdapt").setChecked(c.adapt);
    Click(w, "cmdImport");
    EXPECT_FALSE(w.isVisible());
    std::string octaves;
    for (const MelodyNote& note : f.ws.ImportMelody) octaves += std::to_string(note.Octave) + " ";
    EXPECT_EQ(octaves, c.octaves);
    EXPECT_EQ(f.ws.header.Name, c.name);
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

TEST_F(ImportWindow, IgnoresPressesAndTypingWhileItImportsAndKeepsNothingWhenItIsClosed) {
  SetSource(kTune);
  fake.pump.onPump = [this](int) {
    window.close();
    EXPECT_TRUE(window.isVisible()) << "the main window would take clicks now";
  };
  Click(window, "cmdImport");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Rejected);
  EXPECT_THAT(ws.ImportMelody, IsEmpty());
  EXPECT_EQ(ws.header, SongHeader());
  frmImport next(ws);
  next.show();
  auto& box = Control<QPlainTextEdit>(next, "txtSource");
  box.setPlainText(kTune);
  fake.pump.onPump = [&](int) {
    box.setPlainText("other:d=4:e,e,e,e,e");
    Click(next, "cmdImport");
  };
  Click(next, "cmdImport");
  EXPECT_EQ(ws.ImportMelody.size(), 3U);
  EXPECT_EQ(ws.header.Name, "test");
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
