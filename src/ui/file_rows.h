// The rows of the file browser as its list shows them. A folder of hundreds of thousands of files is shown in
// steps, so that the window answers meanwhile.
#pragma once

#include <QAbstractListModel>
#include <QTimer>
#include <vector>

#include "files/file_row.h"

namespace trillomat {

class FileRows : public QAbstractListModel {
  Q_OBJECT

 public:
  /// `rows` outlives it.
  FileRows(const std::vector<FileRow>& rows, QObject* parent);

  /// The rows changed. Up to 10,000 of them are there at once, the others come from the event loop.
  void Refill();
  /// Shows the rows up to row `row` at once.
  void Reach(int row);

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : shown_; }
  QVariant data(const QModelIndex& index, int role) const override;

 signals:
  /// "40,000 of 200,000 rows" while there are rows to come, empty once there are none.
  void Progress(const QString& text);

 private:
  int Count() const { return static_cast<int>(rows_.size()); }
  void ShowUpTo(int count);
  void Step() { ShowUpTo(2 * shown_); }

  const std::vector<FileRow>& rows_;
  int shown_ = 0;
  QTimer timer_;
};

}  // namespace trillomat
