// Something dragged over a window and dropped there, as the window system tells it.
#pragma once

#include <QMimeData>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <memory>
#include <utility>

#include "support/dice.h"

namespace trillomat {

class MonkeyDrag {
 public:
  explicit MonkeyDrag(Dice& dice) : dice_(dice) {}

  bool Runs() const { return data_ != nullptr; }
  void Begin(std::unique_ptr<QMimeData> data) { data_ = std::move(data); }
  /// Moves to a place over `target`, which is visible, or there drops what is dragged, or leaves.
  void GoOn(const QWidget& target);
  /// Ends it, wherever it is. To be called before a window goes that the toolkit may count as dragged over.
  void End();
  /// How many drops were taken.
  int Drops() const { return drops_; }

 private:
  void Leave();

  Dice& dice_;
  std::shared_ptr<QMimeData> data_;
  QPointer<QWindow> over_;
  int drops_ = 0;
};

}  // namespace trillomat
