// The modal windows, driven through their controls.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWindow>
#include <memory>

#include "core/limits.h"
#include "support/fakes.h"
#include "support/sample_notes.h"
#include "ui/controls.h"
#include "ui/dialog_probe.h"
#include "ui/export_window.h"
#include "ui/import_window.h"
#include "ui/qt_text.h"
#include "ui/rename_window.h"

namespace trillomat {
namespace {

using testing::StartsWith;

void PressOk(QDialog& dialog) { Click(dialog, "cmdOK"); }
void PressReturn(QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }

TEST(RenameWindow, TypingReplacesTheNameWhichCountsOnlyOnOkAndHoldsOneLine) {
  void (*const ways[])(QDialog&) = {&PressOk, &PressReturn, &CloseFrame, &PressEscape,
                                    [](QDialog& w) { Click(w, "cmdCancel"); }};
  for (const auto& leave : ways) {
    RenameWindow window(QStringLiteral("Für Elise"));
    window.show();
    ExpectUsable(window, "frmRename", "Trillomat - Rename");
    auto& name = Find<QLineEdit>(window, "txtName");
    EXPECT_EQ(window.focusWidget(), &name);
    EXPECT_EQ(name.selectedText(), QStringLiteral("Für Elise"));
    QTest::keyClicks(&name, "a.b");
    QApplication::clipboard()->setText(QStringLiteral("\n☺"));
    name.paste();
    EXPECT_EQ(window.NewName(), QStringLiteral("a.b ☺"));
    leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result() == QDialog::Accepted, leave == &PressOk || leave == &PressReturn);
  }
}

constexpr const char* kTune = "test:d=4,o=5,b=100:c,p,h";

class ImportWindowTest : public testing::Test, public FakeServices {
 protected:
  ImportWindowTest() { window.show(); }

  ReadRecord before;
  ImportWindow window{before, services};
  QPlainTextEdit& source = Find<QPlainTextEdit>(window, "txtSource");
  QPushButton& import = Find<QPushButton>(window, "cmdImport");
};

TEST_F(ImportWindowTest, IgnoresPressesAndTypingWhileItImportsAndEveryWayOutImportsNothing) {
  source.setPlainText(kTune);
  pump.onPump = [&](int) {
    source.setPlainText("other:d=4:e,e,e,e,e");
    import.click();
  };
  import.click();
  ASSERT_TRUE(window.Result());
  EXPECT_EQ(window.Result()->read.elements.size(), 3U);
  for (void (*leave)(QDialog&) : {+[](QDialog& w) { Click(w, "cmdCancel"); }, &PressEscape, &CloseFrame}) {
    for (const bool running : {false, true}) {
      ImportWindow w(before, services);
      w.show();
      Find<QPlainTextEdit>(w, "txtSource").setPlainText("t:d=4:c" + QString(",c").repeated(1000));
      pump.pumps = 0;
      pump.onPump = [&](int) {
        leave(w);
        EXPECT_TRUE(w.isVisible()) << "the main window would take clicks now";
      };
      if (running) Click(w, "cmdImport");
      if (!running) leave(w);
      EXPECT_LT(pump.pumps, 5);
      EXPECT_FALSE(w.isVisible());
      EXPECT_EQ(w.result(), QDialog::Rejected);
      EXPECT_FALSE(w.Result());
    }
  }
}

constexpr const char* kNokiaKeys = "0--> Press: 1\r\n1--> Press: 2 8\r\n";

TEST_F(ImportWindowTest, ATextPastTheLimitIsRefusedInWords) {
  source.setPlainText(kTune);
  QApplication::clipboard()->setText(QString(static_cast<qsizetype>(kLargestInput), 'c'));
  source.paste();
  EXPECT_EQ(source.toPlainText(), kTune);
  EXPECT_EQ(Find<QLabel>(window, "lblReplaced").text(), "The text is larger than 64 MiB and was not taken.");
}

TEST_F(ImportWindowTest, PastingAnEmptyClipboardDoesNothing) {
  source.setPlainText(kTune);
  QApplication::clipboard()->setMimeData(new QMimeData);
  source.setFocus();
  QTest::keyClick(&source, Qt::Key_V, Qt::ControlModifier);
  source.paste();
  EXPECT_EQ(source.toPlainText(), kTune);
}

// The toolkit goes on telling the drag to the widget that was under the pointer.
TEST(Dialogs, ADragGoesOnWhenTheDialogUnderItHasClosed) {
  QMimeData text;
  text.setText("c2");
  const auto tell = [](const QWidget& window, auto&& event) {
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    return event.isAccepted();
  };
  QWidget behind;
  behind.setAcceptDrops(true);
  behind.show();
  for (int i = 0; i < 50; ++i) {
    FakeServices services;
    const ReadRecord before;
    auto dialog = std::make_unique<ImportWindow>(before, services.services);
    dialog->show();
    auto& box = Find<QPlainTextEdit>(*dialog, "txtSource");
    const QPoint at = box.mapTo(dialog.get(), box.rect().center());
    ASSERT_TRUE(tell(*dialog, QDragEnterEvent(at, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier)));
    dialog->close();
    dialog.reset();
    EXPECT_FALSE(
        tell(behind, QDragEnterEvent({9, 9}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier)));
    EXPECT_FALSE(tell(behind, QDragMoveEvent({9, 9}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier)));
  }
}

class ExportWindowTest : public testing::Test, public FakeServices {
 protected:
  ExportWindowTest() { window.show(); }

  void Export(int index) { Click(window, IndexedName("cmdExport", index)); }
  static QString Shown(const std::string& text) { return ToQString(text).replace("\r\n", "\n"); }
  static QString Clipboard() { return QApplication::clipboard()->text().remove('\r'); }

  static std::shared_ptr<const Song> Shared(Song song) {
    return std::make_shared<const Song>(std::move(song));
  }

  ExportWindow window{Shared({{Note("c", 4), Note("d", 4, 0.5F)}, {.name = "Caf\xE9"}}), false, services};
  QPlainTextEdit& result = Find<QPlainTextEdit>(window, "txtResult");
  QPushButton& save = Find<QPushButton>(window, "cmdSaveToFile");
  QLabel& status = Find<QLabel>(window, "lblStatus");
};

TEST_F(ExportWindowTest, EachButtonMakesItsTextOrSaysWhyNot) {
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
  ExpectUsable(window, "frmExport", "Trillomat - Export");
  EXPECT_FALSE(save.isEnabled());
  int index = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.caption);
    Export(index);
    save.click();  // does nothing
    EXPECT_EQ(Find<QPushButton>(window, IndexedName("cmdExport", index++)).text().remove('&'), c.caption);
    EXPECT_THAT(window.Result(), StartsWith(c.start));
    EXPECT_EQ(window.Result().empty(), *c.start == '\0');
    EXPECT_EQ(result.toPlainText(), Shown(window.Result()));
    EXPECT_EQ(save.isEnabled(), c.saves);
    EXPECT_EQ(status.text().isEmpty(), *c.start == '\0');
  }
  ExportWindow wide(Shared({Tones({3, 5}), {}}), false, services);
  Click(wide, "cmdExport(7)");
  EXPECT_EQ(wide.Result(), "");
  const QString why = Find<QLabel>(wide, "lblStatus").text();
  EXPECT_TRUE(why.contains("the R320 and T28")) << why.toStdString();
}

TEST_F(ExportWindowTest, CopiesAllOrTheSelectionAndEnterPressesNoButton) {
  Export(2);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  // From the button that has the focus, then from the box, then with a line selected there.
  Find<QPushButton>(window, "cmdExport(2)").setFocus();
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

TEST_F(ExportWindowTest, IgnoresPressesWhileItExportsAndEveryWayOutEndsThat) {
  pump.onPump = [this](int) {
    Export(3);
    Export(6);
  };
  Export(2);
  EXPECT_EQ(window.Result(), kNokiaKeys);
  EXPECT_FALSE(save.isEnabled());
  for (void (*leave)(QDialog&) : {+[](QDialog& w) { Click(w, "cmdAbort"); }, &PressEscape, &CloseFrame}) {
    ExportWindow w(Shared({ElementList(1000, Note("c")), {}}), false, services);
    w.show();
    pump.pumps = 0;
    pump.onPump = [&](int) {
      leave(w);
      EXPECT_TRUE(w.isVisible());
    };
    Click(w, "cmdExport(2)");
    EXPECT_LT(pump.pumps, 5);
    EXPECT_FALSE(w.isVisible());
  }
}

TEST_F(ExportWindowTest, ModernSpellingRemakesRtttlAlone) {
  auto& modern = Find<QCheckBox>(window, "chkModernSpelling");
  EXPECT_FALSE(modern.isChecked());
  modern.click();
  EXPECT_EQ(window.Result(), "") << "nothing is shown yet";
  Export(3);
  EXPECT_EQ(window.Result(), "Caf\xE9:d=4,o=6,b=100:c,8d");
  modern.click();
  EXPECT_EQ(window.Result(), "Caf\xE9:d=4,o=6,b=100:C,8D");
  EXPECT_EQ(result.toPlainText(), Shown(window.Result()));
  Export(2);
  modern.click();
  EXPECT_EQ(window.Result(), kNokiaKeys);
  EXPECT_TRUE(window.ModernSpelling());
  EXPECT_TRUE(ExportWindow(Shared({Tones({4}), {}}), true, services).ModernSpelling());
}

TEST_F(ExportWindowTest, TellsWhatFitsAndWhatIsLost) {
  const ElementList elements{Note("c", 2), Note("d", 4, 0.25F), Command("ledon")};
  ExportWindow w(Shared({elements, {.name = "<b>Am: I"}}), false, services);
  EXPECT_EQ(
      Find<QLabel>(w, "lblFits").text(),
      "RTTTL: does not fit: element 3 (light on) is a command that it lacks\n"
      "Nokia Composer: does not fit: element 3 (light on) is a command that it lacks\n"
      "T68i: fits when moved 2 octaves up; 3 elements\n"
      "T39: does not fit: element 2 (d, octave 4, sixteenth) has a length that it lacks; 2 of 3 in all\n"
      "R320 and T28: does not fit: element 2 (d, octave 4, sixteenth) is too far from the octaves before "
      "it");
  auto& said = Find<QLabel>(w, "lblStatus");
  Click(w, "cmdExport(1)");
  EXPECT_TRUE(said.text().endsWith("2 of 3 elements not typed as composed: 1 command, 1 length."));
  Click(w, "cmdExport(0)");
  EXPECT_FALSE(said.text().contains("not typed"));
  Click(w, "cmdExport(3)");
  EXPECT_TRUE(
      said.text().contains("1 of 3 elements left out: 1 command. Warning: the name \"<b>Am: I\" holds"));
  EXPECT_TRUE(said.text().contains("read back as \"<b>Am\""));
}

}  // namespace
}  // namespace trillomat
