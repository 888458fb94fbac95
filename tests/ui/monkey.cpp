#include "ui/monkey.h"

#include <QPointer>

namespace trillomat {
namespace {

constexpr Qt::Key kKeys[] = {Qt::Key_Left,  Qt::Key_Right, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space,
                             Qt::Key_Home,  Qt::Key_End,   Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Up,
                             Qt::Key_Down,  Qt::Key_Z,     Qt::Key_S,      Qt::Key_X,         Qt::Key_D,
                             Qt::Key_C,     Qt::Key_V,     Qt::Key_G,      Qt::Key_B,         Qt::Key_H,
                             Qt::Key_N,     Qt::Key_J,     Qt::Key_M,      Qt::Key_1,         Qt::Key_9,
                             Qt::Key_Enter, Qt::Key_Menu,  Qt::Key_Escape};

constexpr const char* kTexts[] = {
    "",      "0",  "2",  "15",          "16",  "100", "900", "901", "abc",   "-1",
    "Frère", "V7", "S1", "99999999999", "1.5", ")",   "((",  "@0)", "a:b,c", "x:d=4:c,8d#,2p,e6.",
    "cDe#f"};

}  // namespace

template <class W>
std::vector<W*> Monkey::Usable(const QWidget& window) const {
  std::vector<W*> usable;
  for (W* widget : window.findChildren<W*>()) {
    if (widget->isVisible() && widget->isEnabled() && widget->window() == &window) usable.push_back(widget);
  }
  return usable;
}

void Monkey::Act(MainWindow& window, const TempFolder& folder) {
  ++events;
  largestDepth = std::max(largestDepth, ++depth);
  QWidget* popup = QApplication::activePopupWidget();
  QWidget* modal = QApplication::activeModalWidget();
  if (popup != nullptr) {
    const auto items = popup->actions();
    if (Number(2) == 0 && !items.isEmpty()) items.at(Number(static_cast<int>(items.size())))->trigger();
    popup->close();
  } else if (modal != nullptr) {
    ActInFront(*modal);
  } else {
    const int dice = Number(100);
    if (dice < 45) AnyOf(Usable<QAbstractButton>(window)).click();
    if (dice >= 45 && dice < 65) PressKey(window);
    if (dice >= 65 && dice < 72) TypeText(window);
    if (dice >= 72 && dice < 82) TriggerItem(window);
    if (dice >= 82 && dice < 92) UseList(window);
    if (dice >= 92 && dice < 95) MoveSlider(window);
    if (dice >= 95 && dice < 98)
      window.OpenFile(
          folder / folder.Names().at(static_cast<size_t>(Number(static_cast<int>(folder.Names().size())))),
          Number(2) == 0);
    if (dice == 98) window.resize(800 + Number(800), 600 + Number(400));
    if (dice == 99 && mayClose && Number(10) == 0) window.close();
  }
  --depth;
}

// Leaves sooner or later: every dialog has a button that closes it.
void Monkey::ActInFront(QWidget& front) {
  const QPointer<QWidget> alive(&front);
  const auto boxes = Usable<QPlainTextEdit>(front);
  if (!boxes.empty() && !boxes.front()->isReadOnly())
    boxes.front()->setPlainText(kTexts[Number(std::size(kTexts))]);
  const auto lines = Usable<QLineEdit>(front);
  if (!lines.empty()) lines.front()->setText(kTexts[Number(std::size(kTexts))]);
  const auto buttons = Usable<QAbstractButton>(front);
  if (buttons.empty() || Number(8) == 0) return void(front.close());
  AnyOf(buttons).click();
}

void Monkey::PressKey(QWidget& window) {
  QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
  const Qt::KeyboardModifiers modifiers = Number(10) == 0 ? Qt::AltModifier : Qt::NoModifier;
  QTest::keyClick(focus, kKeys[Number(std::size(kKeys))], modifiers);
}

void Monkey::TypeText(QWidget& window) {
  QLineEdit& box = AnyOf(Usable<QLineEdit>(window));
  box.setFocus();
  if (!box.isReadOnly()) box.setText(QString::fromUtf8(kTexts[Number(std::size(kTexts))]));
}

void Monkey::TriggerItem(QWidget& window) {
  std::vector<QAction*> items;
  for (QAction* menu : static_cast<MainWindow&>(window).menuBar()->actions()) {
    if (!menu->isVisible()) continue;
    if (menu->menu() == nullptr) items.push_back(menu);
    for (QAction* item :
         menu->menu() != nullptr ? menu->menu()->findChildren<QAction*>() : QList<QAction*>()) {
      if (item->menu() == nullptr && !item->isSeparator()) items.push_back(item);
    }
  }
  if (items.empty()) return;
  QAction& item = AnyOf(items);
  if (item.objectName() != "mnuFileExit" || (mayClose && Number(20) == 0)) item.trigger();
}

void Monkey::UseList(QWidget& window) {
  auto& list = Find<QListWidget>(window, "ListFiles");
  if (list.count() == 0) return;
  const QPoint place = list.visualItemRect(list.item(Number(list.count()))).center();
  switch (Number(4)) {
    case 0: return QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    case 1: return QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place);
    default: return QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
  }
}

void Monkey::MoveSlider(QWidget& window) {
  if (Number(2) == 0) return Find<QSlider>(window, "SliderOctave").setValue(Number(9));
  QComboBox& list = AnyOf(Usable<QComboBox>(window));
  list.setFocus();
  QTest::keyClick(&list, Number(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
}

}  // namespace trillomat
