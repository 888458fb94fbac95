#include "ui/file_list.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "ui/colours.h"

namespace trillomat {
namespace {

// Makes the rows high enough for a finger or an unsteady hand, and marks the one that Enter acts on.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const auto [ink, ground] = selected ? std::pair(QPalette::HighlightedText, QPalette::Highlight)
                                        : std::pair(QPalette::Highlight, QPalette::Base);
    QColor mark = WithContrast(option.palette.color(ink), option.palette.color(ground), kVisible);
    painter->setPen(mark);
    mark.setAlphaF(selected ? 0.0F : 0.2F);
    painter->setBrush(mark);
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int kLowestRow = 20;
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {hint.width(), std::max(hint.height(), kLowestRow)};
  }
};

}  // namespace

FileList::FileList(const std::vector<FileRow>& rows, QWidget* parent)
    : QListView(parent), rows_(rows), model_(new FileRows(rows, this)) {
  setModel(model_);
  connect(model_, &FileRows::Progress, this, &FileList::Progress);
  setItemDelegate(new RowDelegate(this));
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
}

QItemSelectionModel::SelectionFlags FileList::selectionCommand(const QModelIndex& /*index*/,
                                                               const QEvent* /*event*/) const {
  return QItemSelectionModel::NoUpdate;
}

// Styles show the selection of a list without the focus in pale grey. What "Save" writes over is to be seen
// then, too.
void FileList::initViewItemOption(QStyleOptionViewItem* option) const {
  QListView::initViewItemOption(option);
  option->state |= QStyle::State_Active;
}

void FileList::ShowSelected(int row) {
  model_->Reach(row);
  const QModelIndex index = model_->index(row);
  if (!index.isValid()) return clearSelection();
  selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

// The signals come last: what they start may fill this list anew or play a melody to its end.
void FileList::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  const int row = index.isValid() ? index.row() : -1;
  menuPlace_ = event->globalPosition().toPoint();
  const Qt::MouseButton button = event->button();
  QListView::mousePressEvent(event);
  if (button == Qt::RightButton) emit MenuRequested(row);
  if (button == Qt::LeftButton && row >= 0) emit Clicked(row);
}

void FileList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && index.isValid()) emit DoubleClicked(index.row());
}

// A right click has asked for the menu when it was pressed, so here only the menu key does.
void FileList::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  menuPlace_ = viewport()->mapToGlobal(visualRect(currentIndex()).center());
  emit MenuRequested(currentIndex().row());
}

// While the list has the focus it has a frame, as the melody line and the note strip have.
void FileList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(viewport());
  const QColor accent = palette().color(QPalette::Highlight);
  painter.setPen(QPen(WithContrast(accent, palette().color(QPalette::Base), kVisible), 2));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

// The keys that erase notes elsewhere do nothing here.
void FileList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) return;
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    return QListView::keyPressEvent(event);
  }
  const int row = currentIndex().row();
  if (row < 0 || static_cast<size_t>(row) >= rows_.size() || event->isAutoRepeat()) return;
  // A folder is entered by a double click, a file is opened by a single one.
  if (rows_[static_cast<size_t>(row)].IsFile()) {
    emit Clicked(row);
  } else {
    emit DoubleClicked(row);
  }
}

}  // namespace trillomat
