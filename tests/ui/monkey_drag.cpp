#include "ui/monkey_drag.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <algorithm>

namespace trillomat {

// The window finds the widget under the pointer, and tells it and the one that was left. Events can run
// inside of a drop: by then the next drag may begin.
void MonkeyDrag::GoOn(const QWidget& target) {
  QWindow* const window = target.window()->windowHandle();
  if (window == nullptr) return;
  const std::shared_ptr<QMimeData> data = data_;
  const QPoint place(dice_.Number(std::max(target.width(), 1)), dice_.Number(std::max(target.height(), 1)));
  const QPoint at = target.mapTo(target.window(), place);
  constexpr Qt::DropActions kActions[] = {Qt::CopyAction, Qt::CopyAction | Qt::MoveAction, Qt::MoveAction,
                                          Qt::LinkAction};
  const Qt::DropActions actions = dice_.AnyOf(kActions);
  if (over_ != window) {
    Leave();
    over_ = window;
    QDragEnterEvent enter(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    return;
  }
  QDragMoveEvent move(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(window, &move);
  if (dice_.OneIn(3)) return;
  data_.reset();
  if (!move.isAccepted()) return Leave();
  over_.clear();
  QDropEvent drop(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
  drop.setDropAction(move.dropAction());
  QCoreApplication::sendEvent(window, &drop);
  if (drop.isAccepted()) ++drops_;
}

void MonkeyDrag::Leave() {
  QDragLeaveEvent leave;
  if (over_ != nullptr) QCoreApplication::sendEvent(over_, &leave);
  over_.clear();
}

void MonkeyDrag::End() {
  data_.reset();
  Leave();
}

}  // namespace trillomat
