#include "ui/key_input.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <utility>

namespace trillomat {
namespace {

bool IsTypedInto(const QWidget& widget) {
  const auto* list = qobject_cast<const QComboBox*>(&widget);
  const auto* box = qobject_cast<const QLineEdit*>(&widget);
  return (list != nullptr && list->isEditable()) || (box != nullptr && !box->isReadOnly());
}

bool IsOption(const QWidget& widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button != nullptr && button->autoExclusive();
}

bool IsList(const QWidget& widget) { return qobject_cast<const QAbstractItemView*>(&widget) != nullptr; }

// Whether the arrow keys, Home, End and the page keys move something in it.
bool IsMovedIn(const QWidget& widget) {
  return IsList(widget) || IsOption(widget) || qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr;
}

bool Moves(const QKeyEvent& key) {
  return key.key() >= Qt::Key_Home && key.key() <= Qt::Key_PageDown;  // with the arrows between them
}

bool Erases(const QKeyEvent& key) { return key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete; }

// Whether the widget has a use of its own for the key.
bool Keeps(const QWidget& widget, const QKeyEvent& key) {
  constexpr auto kCommanding = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const bool plain = (key.modifiers() & kCommanding) == Qt::NoModifier;
  if (!plain) return false;
  return IsTypedInto(widget) || (IsMovedIn(widget) && Moves(key)) || (IsList(widget) && Erases(key));
}

// Whether the command is for this widget: two of them depend on what has the focus.
bool IsFor(const QWidget& widget, KeyCommand command) {
  if (command == KeyCommand::Leave) return widget.isWindow();
  if (command != KeyCommand::Enter) return true;
  return widget.objectName() == QStringLiteral("noteStrip");
}

QAbstractButton* ButtonToPress(QWidget& widget, KeyCommand command) {
  if (command != KeyCommand::Enter || IsOption(widget)) return nullptr;
  return qobject_cast<QAbstractButton*>(&widget);
}

// A text box that is only read takes no shortcut for itself, unless there is something in it to copy.
bool OnlyShows(const QWidget& widget) {
  const auto* box = qobject_cast<const QLineEdit*>(&widget);
  return box != nullptr && box->isReadOnly() && !box->hasSelectedText();
}

}  // namespace

KeyInput::KeyInput(QWidget& window, std::function<bool()> mayRepeat)
    : QObject(&window), window_(window), mayRepeat_(std::move(mayRepeat)) {
  window_.installEventFilter(this);
  for (QWidget* widget : window_.findChildren<QWidget*>()) widget->installEventFilter(this);
}

bool KeyInput::eventFilter(QObject* watched, QEvent* event) {
  const bool override = event->type() == QEvent::ShortcutOverride;
  if (!override && event->type() != QEvent::KeyPress) return false;
  auto& widget = static_cast<QWidget&>(*watched);
  if (widget.window() != &window_) return false;  // a list that has dropped down
  auto& key = static_cast<QKeyEvent&>(*event);
  return override ? Override(widget, key) : Press(widget, key);
}

// The toolkit asks this before it looks for a shortcut in the menus. An accepted key is no shortcut, but
// comes again as a key press: for Press, or for the widget where that has a use of its own for it.
bool KeyInput::Override(const QWidget& widget, QKeyEvent& key) {
  const auto stroke = StrokeOf(key);
  const bool ours = stroke && HandlerOf(widget, key, *stroke) != nullptr;
  const bool kept = stroke && handlers_.contains(stroke->command) && Keeps(widget, key);
  const bool taken = MenusHaveFocus() || ours || kept;
  if (taken) key.accept();
  return taken || OnlyShows(widget);
}

bool KeyInput::MenusHaveFocus() const {
  return qobject_cast<const QMenuBar*>(window_.focusWidget()) != nullptr;
}

bool KeyInput::Press(QWidget& widget, const QKeyEvent& key) {
  const auto stroke = StrokeOf(key);
  if (!stroke) return false;
  if (QAbstractButton* button = ButtonToPress(widget, stroke->command)) {
    if (!key.isAutoRepeat()) button->click();
    return true;
  }
  const Handler* handler = HandlerOf(widget, key, *stroke);
  if (handler == nullptr) return false;
  const bool acts = !key.isAutoRepeat() || (RowOf(stroke->command).repeats && mayRepeat_());
  if (acts) (*handler)(stroke->index);
  return true;
}

// What handles the key at this widget, nothing when it is left to others.
const KeyInput::Handler* KeyInput::HandlerOf(const QWidget& widget, const QKeyEvent& key,
                                             const KeyStroke& stroke) const {
  const auto found = handlers_.find(stroke.command);
  const bool left = MenusHaveFocus() || Keeps(widget, key) || !IsFor(widget, stroke.command);
  return found == handlers_.end() || left ? nullptr : &found->second;
}

}  // namespace trillomat
