#include "ui/song_info_box.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QValidator>

#include "composer/song_info.h"
#include "core/code_page.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr QRgb kInvalidText = qRgb(255, 0, 0);
constexpr int kVolumes = 16;

// Leaves out what Windows-1252 lacks, so that it can be neither typed nor pasted.
class CodePageValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& position) const override {
    QString kept;
    int before = position;
    for (qsizetype i = 0; i < input.size(); ++i) {
      if (CodePageHas(input.at(i).unicode())) {
        kept += input.at(i);
      } else if (i < position) {
        --before;
      }
    }
    input = kept;
    position = before;
    return Acceptable;
  }
};

}  // namespace

SongInfoBox::SongInfoBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("Song information"), parent), composer_(composer) {
  auto* grid = new QGridLayout(this);
  for (int row = 0; row < static_cast<int>(lblSongInfo_.size()); ++row) {
    QWidget* control = nullptr;
    if (row < SongInfoPanel::kTextRows) {
      control = txtSongInfo_.at(static_cast<size_t>(row)) = NewTextBox(row);
    } else {
      const int index = row - SongInfoPanel::kStyleRow;
      control = cboSongInfo_.at(static_cast<size_t>(index)) = NewList(index);
    }
    QLabel* label = NewLabel(IndexedName("lblSongInfo", row), {}, control, this);
    grid->addWidget(label, row, 0);
    grid->addWidget(control, row, 1);
    lblSongInfo_.at(static_cast<size_t>(row)) = label;
  }
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(grid->rowCount(), 1);
}

QLineEdit* SongInfoBox::NewTextBox(int index) {
  auto* box = new QLineEdit(this);
  box->setObjectName(IndexedName("txtSongInfo", index));
  box->setValidator(new CodePageValidator(box));
  box->installEventFilter(this);
  connect(box, &QLineEdit::textChanged, this,
          [this, index](const QString& text) { composer_.txtSongInfo_Change(index, FromQString(text)); });
  return box;
}

QComboBox* SongInfoBox::NewList(int index) {
  auto* list = new QComboBox(this);
  list->setObjectName(IndexedName("cboSongInfo", index));
  list->setFocusPolicy(Qt::TabFocus);
  if (index == 0) {
    for (const std::string_view style : kStyleTexts) list->addItem(ToQString(style));
  } else {
    for (int volume = 0; volume < kVolumes; ++volume) list->addItem(QStringLiteral("V%1").arg(volume));
  }
  connect(list, &QComboBox::currentTextChanged, this,
          [this, index](const QString& text) { composer_.cboSongInfo_Change(index, FromQString(text)); });
  return list;
}

// The key filter of the boxes for numbers. Keys that type nothing always pass.
bool SongInfoBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QGroupBox::eventFilter(watched, event);
  const QString typed = static_cast<QKeyEvent*>(event)->text();
  for (int i = 0; i < static_cast<int>(txtSongInfo_.size()); ++i) {
    if (watched != txtSongInfo_.at(static_cast<size_t>(i))) continue;
    for (const QChar key : typed) {
      if (key.isPrint() && !composer_.txtSongInfo_KeyPress(i, FromQString(key).front())) return true;
    }
  }
  return QGroupBox::eventFilter(watched, event);
}

void SongInfoBox::ShowState() {
  const auto& rows = composer_.SongInfo().Rows();
  for (size_t i = 0; i < rows.size(); ++i) {
    ShowCaption(*lblSongInfo_.at(i), ToQString(rows.at(i).caption));
    lblSongInfo_.at(i)->setVisible(rows.at(i).visible);
    lblSongInfo_.at(i)->buddy()->setVisible(rows.at(i).visible);
    lblSongInfo_.at(i)->buddy()->setEnabled(rows.at(i).enabled);
  }
  for (int i = 0; i < SongInfoPanel::kTextRows; ++i) ShowTextRow(i, rows.at(static_cast<size_t>(i)));
  ShowList(*cboSongInfo_[0], rows.at(SongInfoPanel::kStyleRow));
  ShowList(*cboSongInfo_[1], rows.at(SongInfoPanel::kVolumeRow));
}

// "Style" is the one caption with a letter left for a mnemonic.
void SongInfoBox::ShowCaption(QLabel& label, const QString& caption) {
  const QString text = caption == QStringLiteral("Style") ? QStringLiteral("St&yle") : caption;
  if (label.text() == text) return;
  label.setText(text);
  label.buddy()->setAccessibleName(caption);
}

// Valid text has the palette's own colour, which is black in a light palette.
void SongInfoBox::ShowTextRow(int index, const SongInfoRow& row) {
  QLineEdit& box = *txtSongInfo_.at(static_cast<size_t>(index));
  const QSignalBlocker quiet(box);
  ShowText(box, ToQString(row.text));
  if (invalid_.at(static_cast<size_t>(index)) == row.invalid) return;
  invalid_.at(static_cast<size_t>(index)) = row.invalid;
  QPalette colours;
  if (row.invalid) colours.setColor(QPalette::Text, QColor(kInvalidText));
  box.setPalette(colours);
}

// A volume that the list lacks ("V07") is added to it.
void SongInfoBox::ShowList(QComboBox& list, const SongInfoRow& row) {
  const QSignalBlocker quiet(list);
  const QString text = ToQString(row.text);
  if (list.findText(text) < 0) list.addItem(text);
  list.setCurrentText(text);
}

}  // namespace trillomat
