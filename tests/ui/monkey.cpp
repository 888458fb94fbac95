#include "ui/monkey.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QMenuBar>
#include <QPlainTextEdit>

#include "files/path_text.h"
#include "ui/main_window_fixture.h"
#include "ui/monkey_data.h"

namespace trillomat {
namespace {

constexpr Qt::Key kKeys[] = {Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space,
                             Qt::Key_Home,  Qt::Key_End,    Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Up,
                             Qt::Key_Down,  Qt::Key_Z,      Qt::Key_S,      Qt::Key_X,         Qt::Key_1,
                             Qt::Key_Enter, Qt::Key_Menu,   Qt::Key_Escape, Qt::Key_Q,         Qt::Key_5,
                             Qt::Key_Minus, Qt::Key_Period, Qt::Key_PageUp, Qt::Key_A,         Qt::Key_D,
                             Qt::Key_V};

constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::NoModifier,    Qt::NoModifier,
                                                Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                                Qt::AltModifier};

template <class W>
QList<W*> Usable(const QWidget& window) {
  QList<W*> usable;
  for (W* widget : window.findChildren<W*>()) {
    // The toolkit's button for menus without room opens a menu and waits until that is closed.
    if (widget->objectName() == "qt_menubar_ext_button") continue;
    if (widget->isVisible() && widget->isEnabled() && widget->window() == &window) usable << widget;
  }
  return usable;
}

QString TextOfPath(const std::filesystem::path& path) { return FromUtf8Bytes(Utf8OfPath(path)); }

}  // namespace

void Monkey::Act(MainWindow& window) {
  ++events;
  largestDepth = std::max(largestDepth, ++depth);
  if (QWidget* popup = QApplication::activePopupWidget()) {
    if (dice_.OneIn(2) && !popup->actions().isEmpty()) {
      const QList<QAction*> items = popup->actions();
      dice_.AnyOf(items)->trigger();
    }
    popup->close();
  } else if (QWidget* modal = QApplication::activeModalWidget()) {
    auto* dialog = qobject_cast<QFileDialog*>(modal);
    dialog != nullptr ? ActInFileDialog(*dialog) : ActInFront(*modal);
  } else {
    ActOn(window);
  }
  --depth;
}

void Monkey::ActOn(MainWindow& window) {
  const int dice = dice_.Number(116);
  if (dice < 35) {
    const auto buttons = Usable<QAbstractButton>(window);
    return dice_.AnyOf(buttons)->click();
  }
  if (dice < 47) return UseStrip(window);
  if (dice < 65) return PressKey(window);
  if (dice < 72) {
    const auto boxes = Usable<QLineEdit>(window);
    return TypeText(*dice_.AnyOf(boxes));
  }
  if (dice < 82) return TriggerItem(window);
  if (dice < 92) return UseList(window);
  if (dice < 95) return MoveSlider(window);
  if (dice < 98) return window.OpenFile(folder_ / files_.AnyName(), dice_.OneIn(2));
  if (dice == 98) return window.resize(300 + dice_.Number(1500), 200 + dice_.Number(900));
  if (dice < 102) return UseClipboard();
  if (dice < 115) return Drag(window);
  if (mayClose && dice_.OneIn(10)) window.close();
}

// Leaves sooner or later: every dialog has a button that closes it.
void Monkey::ActInFront(QWidget& front) {
  if (drag_.Runs() || dice_.OneIn(6)) return Drag(front);
  for (auto* box : Usable<QPlainTextEdit>(front)) {
    if (box->isReadOnly() || dice_.OneIn(3)) continue;
    dice_.OneIn(3) ? box->paste() : box->setPlainText(AnyText(dice_));
  }
  for (auto* line : Usable<QLineEdit>(front)) line->setText(AnyText(dice_));
  const auto buttons = Usable<QAbstractButton>(front);
  if (buttons.empty() || dice_.OneIn(8)) return void(front.close());
  dice_.AnyOf(buttons)->click();
}

// Types, chooses and leaves. The buttons that lead elsewhere and make folders are let alone, and so are
// drops: the dialog would move files by itself.
void Monkey::ActInFileDialog(QFileDialog& dialog) {
  const QString home = TextOfPath(folder_.Path());
  auto& name = Find<QLineEdit>(dialog, "fileNameEdit");
  const bool isHome = dialog.directory().absolutePath() == home;
  if (!isHome) return dice_.OneIn(2) ? dialog.setDirectory(home) : dialog.reject();
  switch (dice_.Number(8)) {
    case 0: return dialog.close(), void();
    case 1: return QTest::keyClick(&dialog, Qt::Key_Escape);
    case 2: name.setText(home + '/' + FromUtf8Bytes(files_.AnyName())); break;
    case 3: name.setText(AnyText(dice_).remove('/')); break;
    case 4: name.setText(QString(300, 'x')); break;
    case 5: name.setText(QStringLiteral("no such folder/a.imy")); break;
    case 6: {
      const auto lists = dialog.findChildren<QListView*>("listView");
      if (lists.empty() || lists.front()->model()->rowCount(lists.front()->rootIndex()) == 0) return;
      QListView& list = *lists.front();
      const int rows = list.model()->rowCount(list.rootIndex());
      list.setCurrentIndex(list.model()->index(dice_.Number(rows), 0, list.rootIndex()));
      return;
    }
    default: name.setText(FromUtf8Bytes(files_.AnyName()));
  }
  if (dice_.OneIn(2)) LeaveFileDialog(dialog);
}

void Monkey::LeaveFileDialog(QFileDialog& dialog) {
  ++files;
  if (dice_.OneIn(4)) {
    for (auto* list : dialog.findChildren<QComboBox*>("fileTypeCombo")) {
      list->setCurrentIndex(dice_.Number(list->count()));
    }
  }
  if (dice_.OneIn(3)) return QTest::keyClick(&Find<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  for (auto* button : Find<QDialogButtonBox>(dialog, "buttonBox").buttons()) {
    const auto role = Find<QDialogButtonBox>(dialog, "buttonBox").buttonRole(button);
    if (role == QDialogButtonBox::AcceptRole) return button->click();
  }
}

void Monkey::TypeText(QLineEdit& box) {
  box.setFocus();
  if (!box.isReadOnly()) box.setText(AnyText(dice_));
}

void Monkey::PressKey(MainWindow& window) {
  QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
  const Qt::Key key = dice_.AnyOf(kKeys);
  QTest::keyClick(focus, key, dice_.AnyOf(kModifiers));
}

// Presses, drags, releases and double clicks, each of them an event of its own, so that anything can come
// between them.
void Monkey::UseStrip(const MainWindow& window) {
  auto& strip = Find<NoteStrip>(window, "noteStrip");
  if (!strip.isVisible()) return;
  QWidget* view = strip.viewport();
  const QPoint place(dice_.Number(view->width() + 40) - 20, dice_.Number(view->height() + 40) - 20);
  const Qt::KeyboardModifiers held = dice_.OneIn(4) ? Qt::ShiftModifier : Qt::NoModifier;
  switch (dice_.Number(6)) {
    case 0: return QTest::mousePress(view, Qt::LeftButton, held, place);
    case 1: return QTest::mouseRelease(view, Qt::LeftButton, held, place);
    case 2: return QTest::mouseDClick(view, Qt::LeftButton, held, place);
    case 3: return QTest::mouseClick(view, Qt::LeftButton, held, place);
    default: return QTest::mouseMove(view, place);
  }
}

void Monkey::TriggerItem(const MainWindow& window) {
  for (const char* list : {"mnuFileRecent", "mnuFileRecover"}) emit Find<QMenu>(window, list).aboutToShow();
  QList<QAction*> items;
  for (QAction* item : window.menuBar()->findChildren<QAction*>()) {
    if (item->menu() == nullptr && !item->isSeparator()) items << item;
  }
  QAction* item = dice_.AnyOf(items);
  if (item->objectName() != "mnuFileExit" || (mayClose && dice_.OneIn(20))) item->trigger();
}

void Monkey::UseList(const MainWindow& window) {
  const auto& list = Find<QListView>(window, "ListFiles");
  const int rows = list.model()->rowCount();
  if (rows == 0) return;
  const QPoint place = list.visualRect(list.model()->index(dice_.Number(rows), 0)).center();
  const int dice = dice_.Number(4);
  if (dice == 0) return QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseClick(list.viewport(), dice == 1 ? Qt::RightButton : Qt::LeftButton, {}, place);
}

void Monkey::MoveSlider(const MainWindow& window) {
  if (dice_.OneIn(2)) return Find<QSlider>(window, "SliderOctave").setValue(dice_.Number(9));
  const auto lists = Usable<QComboBox>(window);
  QComboBox* list = dice_.AnyOf(lists);
  list->setFocus();
  QTest::keyClick(list, dice_.OneIn(2) ? Qt::Key_Up : Qt::Key_Down);
}

void Monkey::UseClipboard() {
  QClipboard* clipboard = QGuiApplication::clipboard();
  dice_.OneIn(8) ? clipboard->clear() : clipboard->setMimeData(AnyData(dice_, files_, folder_).release());
}

// Over whatever the window shows at some place.
void Monkey::Drag(QWidget& window) {
  if (!drag_.Runs()) {
    drag_.Begin(AnyData(dice_, files_, folder_));
    ++drags;
  }
  QList<QWidget*> places = Usable<QWidget>(window);
  places << &window;
  for (auto* line : Usable<QLineEdit>(window)) places << line << line << line;
  for (auto* box : Usable<QPlainTextEdit>(window)) places << box << box << box << box << box;
  drag_.GoOn(*dice_.AnyOf(places));
}

}  // namespace trillomat
