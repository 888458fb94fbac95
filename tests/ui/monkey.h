// A monkey at the main window: presses, types, drags, triggers, opens, closes whatever comes to hand, in
// an order that its seed fixes.
#pragma once

#include <QApplication>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <random>

#include "ui/main_window_fixture.h"

namespace trillomat {

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed) {}

  /// Does one thing to the modal window or menu in front, or else to `window`.
  void Act(MainWindow& window, const TempFolder& folder);

  int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
  bool mayClose = true;
  int events = 0;
  int largestDepth = 0;
  int depth = 0;

 private:
  template <class T>
  T& AnyOf(const std::vector<T*>& things) {
    return *things[static_cast<size_t>(Number(static_cast<int>(things.size())))];
  }
  template <class W>
  std::vector<W*> Usable(const QWidget& window) const;

  void ActInFront(QWidget& front);
  void PressKey(QWidget& window);
  void TypeText(QWidget& window);
  void TriggerItem(QWidget& window);
  void UseList(QWidget& window);
  void MoveSlider(QWidget& window);

  std::mt19937 random_;
};

}  // namespace trillomat
