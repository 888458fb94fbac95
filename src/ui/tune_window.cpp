#include "ui/tune_window.h"

#include <QVBoxLayout>

#include "core/code_page.h"
#include "exchange/second_reading.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

// "Greensleeves (42 notes)"
QString TitleText(std::string_view tune) {
  const TuneTitle title = TitleOf(tune);
  const QString name = title.name.empty() ? QStringLiteral("Without a name") : ShownName(ToUtf8(title.name));
  return title.notes == 1 ? name + QStringLiteral(" (1 note)")
                          : QStringLiteral("%1 (%L2 notes)").arg(name).arg(title.notes);
}

}  // namespace

TuneWindow::TuneWindow(const std::vector<std::string_view>& tunes, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)) {
  SetUpDialog(*this, QStringLiteral("frmTunes"), QStringLiteral("Trillomat - Tunes"));
  NameControl(*list_, QStringLiteral("lstTunes"), {{}, QStringLiteral("Tunes that the text holds")});
  for (const std::string_view tune : tunes) list_->addItem(TitleText(tune));
  list_->setCurrentRow(0);
  list_->setUniformItemSizes(true);
  connect(list_, &QListWidget::itemActivated, this, &TuneWindow::accept);
  auto* column = new QVBoxLayout(this);
  const QString caption = QStringLiteral("The text holds %L1 &tunes. Which one?").arg(tunes.size());
  column->addWidget(NewLabel(QStringLiteral("lblTunes"), caption, list_, this));
  column->addWidget(list_, 1);
  column->addLayout(NewOkCancelRow(*this, QStringLiteral("Take the marked tune"),
                                   QStringLiteral("Take none of the tunes")));
  list_->setFocus();
}

std::optional<std::string_view> ChosenText(const std::vector<std::string_view>& texts, QWidget* parent) {
  if (texts.size() == 1) return texts.front();
  TuneWindow window(texts, parent);
  if (window.exec() != QDialog::Accepted) return std::nullopt;
  return texts.at(window.Chosen());
}

}  // namespace trillomat
