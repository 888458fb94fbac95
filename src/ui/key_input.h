// Takes the keys of the main window that mean something by the table of keys, wherever the focus is.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>
#include <functional>
#include <map>

#include "ui/key_table.h"

namespace trillomat {

/// Stands before the widgets of a window. A key comes here first, and only then to the widget that has the
/// focus, to the shortcuts of the menus, and to whatever else wants it; but
/// - a text box that can be typed into keeps what it can use, and a menu bar that has the focus everything;
/// - sliders, lists and groups of options keep the keys that move in them;
/// - commands that nothing is bound to here are left to the menus.
class KeyInput : public QObject {
  Q_OBJECT

 public:
  /// Called with the index of the key in KeysOf.
  using Handler = std::function<void(int index)>;

  /// For `window` and all of the widgets in it now. `mayRepeat` tells whether a key that is held down may act
  /// again at this moment.
  KeyInput(QWidget& window, std::function<bool()> mayRepeat);

  /// Calls `handler` when a key of `command` is pressed.
  void Bind(KeyCommand command, Handler handler) { handlers_[command] = std::move(handler); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Override(const QWidget& widget, QKeyEvent& key);
  bool MenusHaveFocus() const;
  bool Press(QWidget& widget, const QKeyEvent& key);
  const Handler* HandlerOf(const QWidget& widget, const QKeyEvent& key, const KeyStroke& stroke) const;

  QWidget& window_;
  std::function<bool()> mayRepeat_;
  std::map<KeyCommand, Handler> handlers_;
};

}  // namespace trillomat
