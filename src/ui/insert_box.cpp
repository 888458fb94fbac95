#include "ui/insert_box.h"

#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr int kHighestVolume = 15;

struct Spoken {
  const char* caption;  ///< with its mnemonic
  const char* text;
};

// In the order of kInsertButtons. The tooltips tell the two light buttons apart.
constexpr std::array<Spoken, kInsertButtons.size()> kSpoken{{{"LED on", "Insert LED on"},
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
  for (int i = 0; i < static_cast<int>(kInsertButtons.size()); ++i) AddButton(*grid, i);
  AddVolume(*grid);
  AddRepeat(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
  for (const int column : {0, 1}) grid->setColumnStretch(column, 1);
}

// Even indices stand left, odd ones right.
void InsertBox::AddButton(QGridLayout& grid, int index) {
  const Spoken& spoken = kSpoken.at(static_cast<size_t>(index));
  auto* button = NewButton(
      IndexedName("cmdInsert", index),
      {QLatin1String(spoken.caption), QLatin1String(spoken.text), QLatin1String(spoken.text)}, this);
  connect(button, &QPushButton::clicked, this, [this, index] {
    composer_.cmdInsert_Click(index, FromQString(txtRepeat_->text()), FromQString(cboVolume_->currentText()));
  });
  grid.addWidget(button, index / 2, index % 2);
  cmdInsert_.at(static_cast<size_t>(index)) = button;
}

void InsertBox::AddVolume(QGridLayout& grid) {
  cboVolume_ = new QComboBox(this);
  NameControl(*cboVolume_, QStringLiteral("cboVolume"),
              {{}, QStringLiteral("Volume to set"), QStringLiteral("Volume that \"Set Volume\" inserts")});
  cboVolume_->setEditable(true);
  cboVolume_->setInsertPolicy(QComboBox::NoInsert);
  cboVolume_->setMinimumContentsLength(2);
  cboVolume_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  for (int volume = 0; volume <= kHighestVolume; ++volume) cboVolume_->addItem(QString::number(volume));
  cboVolume_->setCurrentText(QStringLiteral("7"));
  grid.addWidget(cboVolume_, kSetVolume / 2, 1);
}

// The row keeps its place while it is hidden, so that nothing jumps when a repeat is opened.
void InsertBox::AddRepeat(QGridLayout& grid) {
  txtRepeat_ = new QLineEdit(this);
  txtRepeat_->setMinimumWidth(cboVolume_->minimumSizeHint().width());
  lblRepeat_ = NewLabel(QStringLiteral("lblRepeat"), QStringLiteral("Repeat count"), txtRepeat_, this);
  NameControl(*txtRepeat_, QStringLiteral("txtRepeat"),
              {{},
               QStringLiteral("Repeat count"),
               QStringLiteral("How often the block is played; 0 is without end")});
  const int row = grid.rowCount();
  grid.addWidget(lblRepeat_, row, 0);
  grid.addWidget(txtRepeat_, row, 1);
  for (QWidget* widget : {static_cast<QWidget*>(lblRepeat_), static_cast<QWidget*>(txtRepeat_)}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    widget->hide();
  }
}

void InsertBox::ShowState() {
  for (QPushButton* button : cmdInsert_) button->setEnabled(composer_.CanInsertCommands());
  cboVolume_->setEnabled(composer_.CanSetVolume());
  lblRepeat_->setVisible(composer_.State().repeatBox);
  txtRepeat_->setVisible(composer_.State().repeatBox);
}

}  // namespace trillomat
