#include "ui/file_rows.h"

#include <QLocale>
#include <algorithm>

#include "ui/qt_text.h"

namespace trillomat {
namespace {

// The list lays all of its rows out anew at each step. So each step doubles the rows: together the steps take
// only about twice as long as the last one alone.
constexpr int kFirstStep = 10000;

}  // namespace

FileRows::FileRows(const std::vector<FileRow>& rows, QObject* parent)
    : QAbstractListModel(parent), rows_(rows) {
  connect(&timer_, &QTimer::timeout, this, &FileRows::Step);
}

void FileRows::Refill() {
  beginResetModel();
  shown_ = std::min(kFirstStep, Count());
  endResetModel();
  ShowUpTo(shown_);
}

void FileRows::Reach(int row) {
  if (row >= shown_) ShowUpTo(row + 1);
}

void FileRows::ShowUpTo(int count) {
  const int end = std::min(count, Count());
  if (end > shown_) {
    beginInsertRows({}, shown_, end - 1);
    shown_ = end;
    endInsertRows();
  }
  if (shown_ >= Count()) {
    timer_.stop();
    emit Progress({});
  } else {
    timer_.start(0);
    const QLocale english(QLocale::English);
    emit Progress(QStringLiteral("%1 of %2 rows").arg(english.toString(shown_), english.toString(Count())));
  }
}

// The rows can have changed since the last Refill.
QVariant FileRows::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<size_t>(index.row());
  if (role != Qt::DisplayRole || row >= rows_.size()) return {};
  return ShownName(rows_[row].Text());
}

}  // namespace trillomat
