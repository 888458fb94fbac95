#include "ui/note_entry_box.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "core/number_text.h"
#include "ui/controls.h"
#include "ui/key_table.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

// The widest piano, and its buttons.
constexpr int kWidest = 720;

}  // namespace

NoteEntryBox::NoteEntryBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("Current note"), parent),
      composer_(composer),
      piano_(new PianoKeyboard(this)),
      octave_(new QSlider(Qt::Horizontal, this)) {
  setMaximumWidth(kWidest);
  auto* upper = new QHBoxLayout;
  upper->addWidget(piano_, 1);
  upper->addLayout(NewButtonColumn());
  auto* column = new QVBoxLayout(this);
  column->addLayout(upper, 1);
  column->addLayout(NewOctaveRow());
  connect(piano_, &PianoKeyboard::Pressed, this, [this](int tone) { composer_.EnterTone(tone); });
  setTabOrder(buttons_.back(), octave_);
}

QLayout* NoteEntryBox::NewButtonColumn() {
  buttons_ = {NewButton(QStringLiteral("cmdPause"),
                        {QStringLiteral("P&ause"), QStringLiteral("Insert a pause"),
                         WithKey("Insert a pause of the selected length", KeyCommand::Pause)},
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
  connect(buttons_[0], &QPushButton::clicked, this, [this] { composer_.EnterPause(); });
  connect(buttons_[1], &QPushButton::clicked, this, [this] { composer_.StepDuration(); });
  connect(buttons_[2], &QPushButton::clicked, this, [this] { composer_.StepAccidental(); });
  auto* column = new QVBoxLayout;
  column->addWidget(buttons_[0]);
  column->addStretch();
  column->addWidget(buttons_[1]);
  column->addWidget(buttons_[2]);
  return column;
}

QLayout* NoteEntryBox::NewOctaveRow() {
  NameControl(*octave_, QStringLiteral("SliderOctave"),
              {{},
               QStringLiteral("Active octave"),
               QStringLiteral("Octave of the notes that the keys insert (%1, %2)")
                   .arg(KeyName(KeyCommand::OctaveUp), KeyName(KeyCommand::OctaveDown))});
  octave_->setRange(LimitsOf(FormatMode::IMelody).lowestOctave, LimitsOf(FormatMode::IMelody).highestOctave);
  octave_->setPageStep(1);
  octave_->setTickPosition(QSlider::TicksBelow);
  octave_->setTickInterval(1);
  octave_->setMinimumWidth(120);
  connect(octave_, &QSlider::valueChanged, this, [this](int value) { composer_.SetOctave(value); });
  labels_ = {NewLabel(IndexedName("lbl", 0), QStringLiteral("Act&ive ocatave:"), octave_, this),
             new QLabel(this), new QLabel(this)};
  QFont bold = font();
  bold.setBold(true);
  labels_[1]->setFont(bold);
  labels_[1]->setObjectName(IndexedName("lbl", 1));
  labels_[2]->setObjectName(IndexedName("lbl", 2));
  // The slider keeps its width, whether a range note stands beside it or not.
  for (const ModeLimits& limits : kModeLimits) {
    const int noteWidth = labels_[2]->fontMetrics().horizontalAdvance(ToQString(limits.rangeNote));
    labels_[2]->setMinimumWidth(std::max(labels_[2]->minimumWidth(), noteWidth));
  }
  auto* row = new QHBoxLayout;
  row->addWidget(labels_[0]);
  row->addWidget(labels_[1]);
  row->addWidget(octave_, 1);
  row->addWidget(labels_[2]);
  return row;
}

void NoteEntryBox::ShowState(std::string_view rangeNote) {
  piano_->EnableKeys(composer_.MayEdit());
  for (QPushButton* button : buttons_) button->setEnabled(composer_.MayEdit());
  const int chosen = composer_.State().octave;
  const QSignalBlocker quiet(octave_);
  octave_->setValue(chosen);
  ShowSpoken(*labels_[1], QStringLiteral("Active octave"), ToQString(DecimalText(chosen)));
  labels_[2]->setText(ToQString(rangeNote));
}

}  // namespace trillomat
