#include "ui/song_info_box.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QSignalBlocker>

#include "composer/song_info.h"
#include "ui/controls.h"
#include "ui/qt_text.h"
#include "ui/text_line.h"

namespace trillomat {
namespace {

// The panel's caption, and what it stands for, for tooltips and screen readers.
constexpr const char* kTempoCaption = "B P M";
constexpr const char* kTempoWords = "Beats per minute";
constexpr QRgb kInvalidText = qRgb(255, 0, 0);

QLabel* NewNoRowsLabel(QWidget* parent) {
  QLabel* label = NewLabel(QStringLiteral("lblNoSongInfo"),
                           QStringLiteral("This format stores no song information"), nullptr, parent);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}

// Leaves the keys of "Undo" and "Redo" to the menu, because what is typed is a step of the song and not the
// text box's own affair. Returns whether `key` is one of them.
bool LeaveToMenu(QKeyEvent& key) {
  const bool left = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
  if (left) key.ignore();
  return left;
}

}  // namespace

SongInfoBox::SongInfoBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("Song information"), parent),
      composer_(composer),
      noRows_(NewNoRowsLabel(this)) {
  auto* grid = new QGridLayout(this);
  for (int row = 0; row < static_cast<int>(labels_.size()); ++row) {
    QWidget* control = nullptr;
    if (row < SongInfoPanel::kTextRows) {
      control = texts_.at(static_cast<size_t>(row)) = NewTextBox(row);
    } else {
      const int index = row - SongInfoPanel::kStyleRow;
      control = lists_.at(static_cast<size_t>(index)) = NewList(index);
    }
    QLabel* label = NewLabel(IndexedName("lblSongInfo", row), {}, control, this);
    grid->addWidget(label, row, 0);
    grid->addWidget(control, row, 1);
    labels_.at(static_cast<size_t>(row)) = label;
  }
  grid->addWidget(noRows_, 0, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(grid->rowCount(), 1);
}

QLineEdit* SongInfoBox::NewTextBox(int index) {
  auto* box = new QLineEdit(this);
  box->setObjectName(IndexedName("txtSongInfo", index));
  SetUpTextLine(*box, Characters::OfCodePage);
  box->installEventFilter(this);
  connect(box, &QLineEdit::textChanged, this, [this, index](const QString& text) { Edit(index, text); });
  return box;
}

// While the text is refused, each change of it says so again.
void SongInfoBox::Edit(int index, const QString& text) {
  composer_.EditSongText(index, FromQString(text));
  const QString& refusal = refusals_.at(static_cast<size_t>(index));
  if (!refusal.isEmpty()) emit Refused(refusal);
}

QComboBox* SongInfoBox::NewList(int index) {
  auto* list = new QComboBox(this);
  list->setObjectName(IndexedName("cboSongInfo", index));
  list->setFocusPolicy(Qt::TabFocus);
  if (index == 0) {
    for (const std::string_view style : kStyleTexts) list->addItem(ToQString(style));
  } else {
    for (int volume = 0; volume <= kHighestVolume; ++volume) list->addItem(QStringLiteral("V%1").arg(volume));
  }
  connect(list, &QComboBox::currentTextChanged, this, [this, index](const QString& text) {
    composer_.EditSongText(SongInfoPanel::kStyleRow + index, FromQString(text));
  });
  return list;
}

// The key filter of the boxes for numbers. Keys that type nothing always pass.
bool SongInfoBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) composer_.EndTyping();
  if (event->type() == QEvent::ShortcutOverride) return LeaveToMenu(static_cast<QKeyEvent&>(*event));
  if (event->type() != QEvent::KeyPress) return QGroupBox::eventFilter(watched, event);
  const QString typed = static_cast<QKeyEvent*>(event)->text();
  for (int i = 0; i < static_cast<int>(texts_.size()); ++i) {
    if (watched != texts_.at(static_cast<size_t>(i))) continue;
    for (const QChar key : typed) {
      if (key.isPrint() && !composer_.AcceptsKey(i, FromQString(key).front())) return true;
    }
  }
  return QGroupBox::eventFilter(watched, event);
}

void SongInfoBox::ShowState() {
  const auto& rows = composer_.Panel().Rows();
  for (size_t i = 0; i < rows.size(); ++i) {
    ShowCaption(*labels_.at(i), ToQString(rows.at(i).caption));
    labels_.at(i)->setVisible(rows.at(i).visible);
    labels_.at(i)->buddy()->setVisible(rows.at(i).visible);
    labels_.at(i)->buddy()->setEnabled(rows.at(i).enabled);
    labels_.at(i)->buddy()->setToolTip(TipOf(static_cast<int>(i)));
  }
  noRows_->setVisible(!rows.front().visible);
  for (int i = 0; i < SongInfoPanel::kTextRows; ++i) ShowTextRow(i);
  ShowList(*lists_[0], rows.at(SongInfoPanel::kStyleRow));
  ShowList(*lists_[1], rows.at(SongInfoPanel::kVolumeRow));
}

// What the row means, why its text is refused, or why typing there changes nothing.
QString SongInfoBox::TipOf(int row) const {
  const SongInfoPanel& panel = composer_.Panel();
  if (!panel.Rows().at(static_cast<size_t>(row)).enabled) return QStringLiteral("Set by the file format");
  const std::string refusal = panel.RefusalOf(row);
  if (!refusal.empty()) return ToQString(refusal);
  if (panel.Rows().at(static_cast<size_t>(row)).caption == kTempoCaption) return kTempoWords;
  if (panel.IsEditable(row)) return {};
  return QStringLiteral("Follows from the melody; what is typed here changes nothing");
}

// "Style" is the one caption with a letter left for a mnemonic.
void SongInfoBox::ShowCaption(QLabel& label, const QString& caption) {
  const QString text = caption == QStringLiteral("Style") ? QStringLiteral("St&yle") : caption;
  if (label.text() == text) return;
  label.setText(text);
  label.buddy()->setAccessibleName(caption == kTempoCaption ? QLatin1String(kTempoWords) : caption);
}

// Valid text has the palette's own colour, which is black in a light palette. What is red is underlined, too,
// and says why where the pointer rests on it, in the status bar, and to screen readers.
void SongInfoBox::ShowTextRow(int index) {
  QLineEdit& box = *texts_.at(static_cast<size_t>(index));
  const QSignalBlocker quiet(box);
  ShowText(box, ToQString(composer_.Panel().Rows().at(static_cast<size_t>(index)).text));
  const QString refusal = ToQString(composer_.Panel().RefusalOf(index));
  if (refusals_.at(static_cast<size_t>(index)) == refusal) return;
  refusals_.at(static_cast<size_t>(index)) = refusal;
  QPalette colours;
  if (!refusal.isEmpty()) colours.setColor(QPalette::Text, QColor(kInvalidText));
  box.setPalette(colours);
  QFont font;
  if (!refusal.isEmpty()) font.setUnderline(true);
  box.setFont(font);
  box.setAccessibleDescription(refusal);
  emit Refused(refusal);
}

// A volume that the list lacks ("V07") is added to it.
void SongInfoBox::ShowList(QComboBox& list, const SongInfoRow& row) {
  const QSignalBlocker quiet(list);
  const QString text = ToQString(row.text);
  if (list.findText(text) < 0) list.addItem(text);
  list.setCurrentText(text);
}

}  // namespace trillomat
