#include "ui/insert_box.h"

#include "ui/controls.h"
#include "ui/qt_text.h"
#include "ui/text_line.h"

namespace trillomat {
namespace {

constexpr int kFirstVolume = 7;
constexpr const char* kVolumeTip = "Volume that \"Set Volume\" inserts";

struct ButtonText {
  const char* caption;  ///< with its mnemonic
  const char* spoken;   ///< accessible name and tooltip
};

// By the button's index. The tooltips tell the two light buttons apart.
constexpr std::array<ButtonText, kInsertButtons> kButtonTexts{{{"LED on", "Insert LED on"},
                                                               {"LED off", "Insert LED off"},
                                                               {"VIB on", "Insert vibration on"},
                                                               {"VIB off", "Insert vibration off"},
                                                               {"Lig&ht on", "Insert backlight on"},
                                                               {"Li&ght on", "Insert backlight off"},
                                                               {"Volume (&+)", "Insert volume up"},
                                                               {"Volume (&-)", "Insert volume down"},
                                                               {"Repeat start", "Insert repeat start"},
                                                               {"Repeat stop", "Insert repeat stop"},
                                                               {"Set Volume", "Insert volume"}}};

}  // namespace

// The Tab key takes the controls in the order in which they are made.
InsertBox::InsertBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("Insert"), parent), composer_(composer) {
  auto* grid = new QGridLayout(this);
  for (int i = 0; i < static_cast<int>(kInsertButtons); ++i) AddButton(*grid, i);
  AddVolume(*grid);
  AddRepeat(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
  for (const int column : {0, 1}) grid->setColumnStretch(column, 1);
}

// Even indices stand left, odd ones right.
void InsertBox::AddButton(QGridLayout& grid, int index) {
  const ButtonText& text = kButtonTexts.at(static_cast<size_t>(index));
  auto* button =
      NewButton(IndexedName("cmdInsert", index),
                {QLatin1String(text.caption), QLatin1String(text.spoken), QLatin1String(text.spoken)}, this);
  connect(button, &QPushButton::clicked, this, [this, index] {
    composer_.EnterCommand(index, FromQString(repeat_->text()), FromQString(volume_->currentText()));
  });
  grid.addWidget(button, index / 2, index % 2);
  buttons_.at(static_cast<size_t>(index)) = button;
}

void InsertBox::AddVolume(QGridLayout& grid) {
  volume_ = new QComboBox(this);
  NameControl(*volume_, QStringLiteral("cboVolume"),
              {{}, QStringLiteral("Volume to set"), QLatin1String(kVolumeTip)});
  volume_->setEditable(true);
  volume_->setFocusPolicy(Qt::StrongFocus);  // the wheel alone must not take the letter keys
  volume_->setInsertPolicy(QComboBox::NoInsert);
  volume_->setMinimumContentsLength(2);
  volume_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  for (int volume = 0; volume <= kHighestVolume; ++volume) volume_->addItem(QString::number(volume));
  volume_->setCurrentIndex(kFirstVolume);
  SetUpTextLine(*volume_->lineEdit(), Characters::OfCodePage);
  volume_->lineEdit()->setAccessibleName(volume_->accessibleName());
  // Screen readers may be told the chosen text as the name of an editable list; then they take its name from
  // a label. This one is hidden, because the button "Set Volume" stands where it would.
  NewLabel(QStringLiteral("lblVolume"), volume_->accessibleName(), volume_, this)->hide();
  grid.addWidget(volume_, kSetVolume / 2, 1);
}

// The row keeps its place while it is hidden, so that nothing jumps when a repeat is opened.
void InsertBox::AddRepeat(QGridLayout& grid) {
  repeat_ = new QLineEdit(this);
  SetUpTextLine(*repeat_, Characters::OfCodePage);
  repeat_->setMinimumWidth(volume_->minimumSizeHint().width());
  repeatLabel_ = NewLabel(QStringLiteral("lblRepeat"), QStringLiteral("Repeat count"), repeat_, this);
  NameControl(*repeat_, QStringLiteral("txtRepeat"),
              {{},
               QStringLiteral("Repeat count"),
               QStringLiteral("How often the block is played; 0 is without end")});
  const int row = grid.rowCount();
  grid.addWidget(repeatLabel_, row, 0);
  grid.addWidget(repeat_, row, 1);
  for (QWidget* widget : {static_cast<QWidget*>(repeatLabel_), static_cast<QWidget*>(repeat_)}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    widget->hide();
  }
}

// What is disabled because the format cannot hold it says so in its tooltip.
void InsertBox::ShowState() {
  const bool held = composer_.CanSetVolume();
  const QString why = QStringLiteral("Files of this format hold no phone commands");
  for (size_t i = 0; i < buttons_.size(); ++i) {
    buttons_.at(i)->setEnabled(composer_.CanInsertCommands());
    buttons_.at(i)->setToolTip(held ? QLatin1String(kButtonTexts.at(i).spoken) : why);
  }
  volume_->setEnabled(held);
  volume_->setToolTip(held ? QLatin1String(kVolumeTip) : why);
  repeatLabel_->setVisible(composer_.State().repeatBox);
  repeat_->setVisible(composer_.State().repeatBox);
}

}  // namespace trillomat
