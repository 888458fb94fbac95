#include "ui/note_entry_box.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "core/number_text.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {

NoteEntryBox::NoteEntryBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("Current note"), parent),
      composer_(composer),
      piano_(new PianoKeyboard(this)),
      SliderOctave_(new QSlider(Qt::Horizontal, this)) {
  auto* upper = new QHBoxLayout;
  upper->addWidget(piano_, 1);
  upper->addLayout(NewButtonColumn());
  auto* column = new QVBoxLayout(this);
  column->addLayout(upper, 1);
  column->addLayout(NewOctaveRow());
  connect(piano_, &PianoKeyboard::Pressed, this, [this](int tone) { composer_.cmdTone_Click(tone); });
  setTabOrder(buttons_.back(), SliderOctave_);
  AddLetterKeys();
}

QLayout* NoteEntryBox::NewButtonColumn() {
  buttons_ = {NewButton(QStringLiteral("cmdPause"),
                        {QStringLiteral("P&ause"), QStringLiteral("Insert a pause"),
                         QStringLiteral("Insert a pause of the selected length")},
                        this),
              NewButton(QStringLiteral("cmdDuration"),
                        {QStringLiteral("&Duration"),
                         QStringLiteral("Change the duration of the element at the cursor"),
                         QStringLiteral("Give the element at the cursor the next shorter length")},
                        this),
              NewButton(QStringLiteral("cmdLowHigh"),
                        {QStringLiteral("&Low/High"),
                         QStringLiteral("Change the sharp or flat of the note at the cursor"),
                         QStringLiteral("Make the note at the cursor natural, sharp or flat, in turn")},
                        this)};
  connect(buttons_[0], &QPushButton::clicked, this, [this] { composer_.cmdPause_Click(); });
  connect(buttons_[1], &QPushButton::clicked, this, [this] { composer_.cmdDuration_Click(); });
  connect(buttons_[2], &QPushButton::clicked, this, [this] { composer_.cmdLowHigh_Click(); });
  auto* column = new QVBoxLayout;
  column->addWidget(buttons_[0]);
  column->addStretch();
  column->addWidget(buttons_[1]);
  column->addWidget(buttons_[2]);
  return column;
}

QLayout* NoteEntryBox::NewOctaveRow() {
  NameControl(
      *SliderOctave_, QStringLiteral("SliderOctave"),
      {{}, QStringLiteral("Active octave"), QStringLiteral("Octave of the notes that the keys insert")});
  SliderOctave_->setRange(LimitsOf(FormatMode::IMelody).iOctaveMin, LimitsOf(FormatMode::IMelody).iOctaveMax);
  SliderOctave_->setPageStep(1);
  SliderOctave_->setTickPosition(QSlider::TicksBelow);
  SliderOctave_->setTickInterval(1);
  SliderOctave_->setMinimumWidth(120);
  connect(SliderOctave_, &QSlider::valueChanged, this,
          [this](int value) { composer_.SliderOctave_Change(value); });
  lbl_ = {NewLabel(IndexedName("lbl", 0), QStringLiteral("Act&ive ocatave:"), SliderOctave_, this),
          new QLabel(this), new QLabel(this)};
  QFont bold = font();
  bold.setBold(true);
  lbl_[1]->setFont(bold);
  lbl_[1]->setObjectName(IndexedName("lbl", 1));
  lbl_[2]->setObjectName(IndexedName("lbl", 2));
  auto* row = new QHBoxLayout;
  row->addWidget(lbl_[0]);
  row->addWidget(lbl_[1]);
  row->addWidget(SliderOctave_, 1);
  row->addWidget(lbl_[2]);
  return row;
}

// A text box that can be typed into takes the letter before the shortcut does.
void NoteEntryBox::AddLetterKeys() {
  for (int tone = 0; tone < static_cast<int>(kPianoLetters.size()); ++tone) {
    const QString letter{QLatin1Char(kPianoLetters.at(static_cast<size_t>(tone)))};
    auto* key = new QShortcut(QKeySequence(letter), this);
    key->setAutoRepeat(false);
    connect(key, &QShortcut::activated, this, [this, tone] { composer_.cmdTone_Click(tone); });
  }
}

void NoteEntryBox::ShowState(std::string_view rangeNote) {
  piano_->EnableKeys(composer_.CanEdit());
  for (QPushButton* button : buttons_) button->setEnabled(composer_.CanEdit());
  const int octave = composer_.State().octave;
  const QSignalBlocker quiet(SliderOctave_);
  SliderOctave_->setValue(octave);
  lbl_[1]->setText(ToQString(DecimalText(octave)));
  lbl_[2]->setText(ToQString(rangeNote));
}

}  // namespace trillomat
