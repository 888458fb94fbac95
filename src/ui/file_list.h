// The list widget of the file browser. Which row is selected is decided by the browser alone: it is the
// row that "Save" writes over. The arrow keys move a mark over the rows, Enter acts on the marked row.
#pragma once

#include <QListView>

#include "ui/file_rows.h"

namespace trillomat {

class FileList : public QListView {
  Q_OBJECT

 public:
  /// `rows`, which it shows from the next Refill on, outlive it.
  FileList(const std::vector<FileRow>& rows, QWidget* parent);

  /// Shows the rows anew, none of them selected or marked.
  void Refill() { model_->Refill(); }
  /// Shows row `row` as selected, none for -1.
  void ShowSelected(int row);
  /// Where the last right click or menu key asked for a menu, on the screen.
  QPoint MenuPlace() const { return menuPlace_; }

 signals:
  // `row` is one of the rows, from 0.
  void Clicked(int row);
  void DoubleClicked(int row);
  /// The right button, or the menu key, was pressed on `row`, -1 for none.
  void MenuRequested(int row);
  /// As FileRows::Progress.
  void Progress(const QString& text);

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const std::vector<FileRow>& rows_;
  FileRows* model_;
  QPoint menuPlace_;
};

}  // namespace trillomat
