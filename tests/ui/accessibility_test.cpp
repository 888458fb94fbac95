// What every control of every window owes to those who cannot see it, or use no mouse.
#include <QAbstractSlider>
#include <QAccessible>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <array>

#include "ui/about_window.h"
#include "ui/changes_window.h"
#include "ui/export_window.h"
#include "ui/import_window.h"
#include "ui/keys_window.h"
#include "ui/main_window_fixture.h"
#include "ui/palettes.h"
#include "ui/rename_window.h"
#include "ui/tune_window.h"

namespace trillomat {
namespace {

/// Whether the user works with the widget. A part of a control does not count beside the whole.
bool IsWorkedWith(const QWidget& widget) {
  for (const QWidget* whole = widget.parentWidget(); whole != nullptr; whole = whole->parentWidget()) {
    if (whole->inherits("QComboBox") || whole->inherits("QAbstractItemView")) return false;
  }
  if (widget.objectName().startsWith("qt_") || widget.inherits("QScrollBar")) return false;
  const auto inherits = [&widget](const char* kind) { return widget.inherits(kind); };
  constexpr std::array kKinds{"QAbstractButton",     "QLineEdit",      "QComboBox",
                              "QAbstractSlider",     "QPlainTextEdit", "QAbstractItemView",
                              "trillomat::NoteStrip"};
  return std::any_of(kKinds.begin(), kKinds.end(), inherits);
}

QString Caption(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    return button->text().remove('&').simplified();
  }
  for (const auto* label : widget.window()->findChildren<QLabel*>()) {
    if (label->buddy() == &widget) return label->text().remove('&').simplified();
  }
  return {};
}

/// Whether the keyboard reaches it: by the Tab key, or by the arrow keys from another option of its group.
bool IsReached(const QWidget& widget) {
  if ((widget.focusPolicy() & Qt::TabFocus) != 0) return true;
  const auto* option = qobject_cast<const QRadioButton*>(&widget);
  if (option == nullptr) return false;
  const auto options = widget.parentWidget()->findChildren<QRadioButton*>();
  return std::any_of(options.begin(), options.end(),
                     [](const QRadioButton* each) { return each->focusPolicy() & Qt::TabFocus; });
}

void ExpectNamedAndReached(QWidget& window) {
  const QRegularExpression word("[a-z]{2}");
  const QRegularExpression sign("^[^a-z]+$|\\b[A-Z]{2}|[+-]");
  int worked = 0;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!IsWorkedWith(*widget) || widget->objectName().startsWith("messageAction")) continue;
    ++worked;
    const std::string name = widget->objectName().toStdString();
    EXPECT_TRUE(widget->accessibleName().contains(word)) << name;
    EXPECT_TRUE(IsReached(*widget)) << name;
    const QString about =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))->text(QAccessible::Description);
    const bool full = widget->accessibleName().contains(' ') || !about.isEmpty();
    EXPECT_TRUE(full || !Caption(*widget).contains(sign)) << name;
  }
  EXPECT_GT(worked, 0) << window.objectName().toStdString();
}

class Accessibility : public MainWindowTest {};

TEST_F(Accessibility, EveryControlOfEveryWindowHasAWordANameAndAWayToIt) {
  ExpectNamedAndReached(window);
  SetMode(FormatMode::Rtttl);
  ExpectNamedAndReached(window);
  const auto song = std::make_shared<const Song>();
  const std::vector<std::string_view> tunes{"a:d=4:c", "b:d=4:c"};
  ImportWindow import(record, services);
  ExportWindow exporting(song, false, services);
  RenameWindow rename("a");
  AboutWindow about("1.2.3");
  KeysWindow keys(nullptr);
  ChangesWindow changes({"a change"}, nullptr);
  changes.setAttribute(Qt::WA_DeleteOnClose, false);
  TuneWindow tune(tunes, nullptr);
  for (QWidget* each :
       std::initializer_list<QWidget*>{&import, &exporting, &rename, &about, &keys, &changes, &tune}) {
    ExpectNamedAndReached(*each);
  }
}

TEST_F(Accessibility, TooltipsNameTheKeysOfTheirControls) {
  using Case = std::pair<const char*, KeyCommand>;
  for (const auto& [name, command] :
       {Case{"cmdEraseLeft", KeyCommand::EraseLeft}, Case{"cmdControl(4)", KeyCommand::PlayOrStop},
        Case{"cmdSaveAs", KeyCommand::SaveAs}, Case{"optDurationExtra(0)", KeyCommand::NextExtra},
        Case{"optDuration(0)", KeyCommand::Durations}, Case{"SliderOctave", KeyCommand::OctaveUp},
        Case{"txtRight", KeyCommand::EraseRight}, Case{"cmdTone(0)", KeyCommand::TonesAbove}}) {
    EXPECT_TRUE(Get<QWidget>(name).toolTip().contains(KeyName(command))) << name;
  }
}

TEST_F(Accessibility, TooltipsOfTheMenusSayWhatTheirItemsDo) {
  EXPECT_EQ(Action("mnuEditUndo").toolTip(), "Take back the last change (Ctrl+Z)");
  EXPECT_TRUE(Get<QMenu>("mnuEdit").toolTipsVisible());
}

// By its colour, its underline, its tooltip, the status bar, and what screen readers say of it.
TEST_F(Accessibility, ARefusedTempoSaysWhatCounts) {
  auto& box = Get<QLineEdit>("txtSongInfo(4)");
  const auto told = [&box] {
    return QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Description).toStdString();
  };
  const std::string usual = told();
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "2");
  EXPECT_EQ(window.statusBar()->currentMessage(), "25-900; 100 is in force");
  EXPECT_EQ(told(), "25-900; 100 is in force");
  EXPECT_EQ(box.toolTip(), "25-900; 100 is in force");
  EXPECT_TRUE(box.font().underline());
  QTest::keyClicks(&box, "00");
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
  EXPECT_EQ(told(), usual);
  EXPECT_FALSE(box.font().underline());
  SetMode(FormatMode::Rtttl);
  Get<QLineEdit>("txtSongInfo(1)").setText("901");
  EXPECT_EQ(window.statusBar()->currentMessage(), "25-900; 200 is in force");
  Get<QLineEdit>("txtSongInfo(2)").setText("16");
  EXPECT_EQ(window.statusBar()->currentMessage(), "0-15; 0 is in force");
}

#ifndef _WIN32  // Wine has another style
class Focus : public InPalette, public MainWindowTest {
 protected:
  /// The control and a little around it, where a frame can be drawn that several controls share.
  QImage Around(const QWidget& control) {
    const QRect part(control.mapTo(&window, QPoint()), control.size());
    return window.grab(part.adjusted(-6, -6, 6, 6)).toImage();
  }
};

TEST_P(Focus, IsSeenOnEveryControlThatTakesIt) {
  window.resize(1400, 1000);
  window.setAttribute(Qt::WA_KeyboardFocusChange);  // as the Tab key does
  folder.Write("a.imy", Tune("c2"));
  SetMode(FormatMode::IMelody);
  Press("cmdInsert(8)");
  QTest::qWait(20);
  int looked = 0;
  for (auto* control : window.findChildren<QWidget*>()) {
    if (!IsWorkedWith(*control) || !control->isVisible() || !control->isEnabled()) continue;
    auto& other = Get<QWidget>(control->objectName() == "cmdExport" ? "cmdTone(0)" : "cmdExport");
    other.setFocus(Qt::TabFocusReason);
    const QImage without = Around(*control);
    control->setFocus(Qt::TabFocusReason);
    const QImage with = Around(*control);
    int changed = 0;
    for (int y = 0; y < with.height(); ++y) {
      for (int x = 0; x < with.width(); ++x) changed += with.pixel(x, y) != without.pixel(x, y);
    }
    EXPECT_GT(changed, 2 * std::min(control->width(), control->height()))
        << control->objectName().toStdString();
    ++looked;
  }
  EXPECT_GT(looked, 50);
}

INSTANTIATE_TEST_SUITE_P(Palettes, Focus, testing::Values("light", "dark"),
                         [](const auto& palette) { return std::string(palette.param); });
#endif

}  // namespace
}  // namespace trillomat
