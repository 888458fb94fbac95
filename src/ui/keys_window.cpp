#include "ui/keys_window.h"

#include <QHeaderView>
#include <QStringList>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/dialog_parts.h"
#include "ui/key_table.h"

namespace trillomat {
namespace {

QString KeysText(KeyCommand command) {
  QStringList names;
  for (const QKeySequence& key : KeysOf(command)) names << key.toString(QKeySequence::NativeText);
  return names.join(RowOf(command).byPlace ? QStringLiteral(" ") : QStringLiteral(", "));
}

QTreeWidgetItem* NewGroup(QTreeWidget& list, KeyGroup group) {
  auto* item = new QTreeWidgetItem(&list, {TitleOf(group)});
  QFont bold = list.font();
  bold.setBold(true);
  item->setFont(0, bold);
  item->setFirstColumnSpanned(true);
  return item;
}

void Fill(QTreeWidget& list) {
  for (int i = 0; i < kKeyGroups; ++i) {
    const auto group = static_cast<KeyGroup>(i);
    QTreeWidgetItem* parent = NewGroup(list, group);
    for (const KeyRow& row : KeyTable()) {
      if (row.group != group) continue;
      new QTreeWidgetItem(parent, {KeysText(row.command), QLatin1String(row.words)});
    }
  }
  list.expandAll();
  for (const int column : {0, 1}) list.resizeColumnToContents(column);
}

QTreeWidget* NewList(QWidget* parent) {
  auto* list = new QTreeWidget(parent);
  NameControl(*list, QStringLiteral("lstKeys"), {{}, QStringLiteral("Keys and what they do")});
  list->setHeaderLabels({QStringLiteral("Key"), QStringLiteral("What it does")});
  list->setRootIsDecorated(false);
  list->setItemsExpandable(false);
  list->setUniformRowHeights(true);
  list->setAlternatingRowColors(true);
  list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  Fill(*list);
  return list;
}

}  // namespace

KeysWindow::KeysWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmKeys"));
  setWindowTitle(QStringLiteral("Keys"));
  QTreeWidget* list = NewList(this);
  auto* places = new QLabel(
      QStringLiteral("Letters, and the digits that enter tones or durations, are meant by their place on the "
                     "keyboard and named as on one for US English."),
      this);
  places->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->addWidget(list, 1);
  column->addWidget(places);
  // Wide enough for all words.
  const int wanted = list->header()->length() + 4 * fontMetrics().lineSpacing();
  OpenAt(*this, {wanted, fontMetrics().lineSpacing() * 40});
}

}  // namespace trillomat
