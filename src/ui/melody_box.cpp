#include "ui/melody_box.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <functional>
#include <optional>

#include "ui/button_icons.h"
#include "ui/controls.h"

namespace trillomat {
namespace {

struct CursorButton {
  const char* name;
  const char* caption;
  const char* spoken;
  KeyCommand key;
  void (Composer::*click)();
};

// The arrows have a picture instead of a caption.
constexpr std::array<CursorButton, 4> kCursorButtons{
    {{"cmdEraseLeft", "E&rase", "Erase the element left of the cursor", KeyCommand::EraseLeft,
      &Composer::EraseLeft},
     {"cmdLeft", "", "Move the cursor left", KeyCommand::MoveLeft, &Composer::MoveLeft},
     {"cmdRight", "", "Move the cursor right", KeyCommand::MoveRight, &Composer::MoveRight},
     {"cmdEraseRight", "Erase", "Erase the element right of the cursor", KeyCommand::EraseRight,
      &Composer::EraseRight}}};

struct ControlButton {
  const char* caption;
  const char* spoken;
  const char* tip;
  std::optional<KeyCommand> key = {};
};

// In the order of `Control`.
constexpr std::array<ControlButton, 6> kControlButtons{
    {{"&Clear", "Clear the melody", "Erase the whole melody"},
     {"Start &over", "Start over", "Put the cursor before the first element", KeyCommand::ToStart},
     {"Pa&use", "Pause playing", "Pause playing, and go on"},
     {"&Stop", "Stop playing", "Stop playing behind the tone that sounds", KeyCommand::PlayOrStop},
     {"&Play", "Play the melody", "Play the melody from its start", KeyCommand::PlayOrStop},
     {"To e&nd", "To end", "Put the cursor behind the last element", KeyCommand::ToEnd}}};

QString TipOf(const ControlButton& button) {
  const QLatin1String tip(button.tip);
  return button.key ? WithKey(tip, *button.key) : tip;
}

}  // namespace

MelodyBox::MelodyBox(Document& document, Composer& composer, PlayControls& play, QWidget* parent)
    : QGroupBox(QStringLiteral("Melody"), parent),
      composer_(composer),
      play_(play),
      line_(new MelodyLine(this)),
      strip_(new NoteStrip(document, composer, this)),
      volume_(new VolumeSlider(this)) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(line_);
  column->addWidget(strip_, 1);
  auto* below = new QHBoxLayout;
  below->addLayout(NewCursorRow());
  below->addStretch();
  below->addLayout(NewControlRow());
  below->addSpacing(below->spacing());
  volume_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  below->addWidget(volume_);
  setTabOrder(controls_.back(), volume_);
  column->addLayout(below);
}

QLayout* MelodyBox::NewCursorRow() {
  auto* row = new QHBoxLayout;
  for (size_t i = 0; i < kCursorButtons.size(); ++i) {
    const CursorButton& made = kCursorButtons.at(i);
    auto* button = NewButton(QLatin1String(made.name),
                             {QLatin1String(made.caption), QLatin1String(made.spoken),
                              WithKey(QLatin1String(made.spoken), made.key)},
                             this);
    // Not composer_.*click: GCC 12's sanitizer builds lose the object there.
    connect(button, &QPushButton::clicked, this,
            [this, click = made.click] { std::invoke(click, composer_); });
    row->addWidget(button);
    cursorButtons_.at(i) = button;
  }
  cursorButtons_[1]->setIcon(ArrowIcon(Qt::LeftArrow));
  cursorButtons_[2]->setIcon(ArrowIcon(Qt::RightArrow));
  return row;
}

QLayout* MelodyBox::NewControlRow() {
  auto* row = new QHBoxLayout;
  for (int i = 0; i < static_cast<int>(controls_.size()); ++i) {
    const ControlButton& made = kControlButtons.at(static_cast<size_t>(i));
    auto* button = NewButton(IndexedName("cmdControl", i),
                             {QLatin1String(made.caption), QLatin1String(made.spoken), TipOf(made)}, this);
    connect(button, &QPushButton::clicked, this, [this, i] { Press(static_cast<Control>(i)); });
    row->addWidget(button);
    controls_.at(static_cast<size_t>(i)) = button;
  }
  Button(Control::Pause)->setCheckable(true);
  return row;
}

// The look of "Pause" follows the melody, not the click.
void MelodyBox::Press(Control control) {
  if (control == Control::Clear) {
    emit Clearing();
    return composer_.Clear();
  }
  play_.Press(control);
  if (control == Control::Pause) ShowState();
}

void MelodyBox::ShowState() {
  const bool edit = composer_.MayEdit();
  for (QPushButton* button : cursorButtons_) button->setEnabled(edit);
  for (const Control locked : {Control::Clear, Control::StartOver, Control::ToEnd}) {
    Button(locked)->setEnabled(edit);
  }
  const bool stopped = play_.State() == PlayState::Stopped;
  Button(Control::Pause)->setChecked(play_.State() == PlayState::Paused);
  Button(Control::Play)->setText(stopped ? QStringLiteral("&Play") : QStringLiteral("&Playing"));
}

void MelodyBox::Press(KeyCommand command) {
  if (QPushButton* button = ButtonOf(command)) button->click();
}

void MelodyBox::PlayOrStop() {
  Button(play_.State() == PlayState::Stopped ? Control::Play : Control::Stop)->click();
}

QPushButton* MelodyBox::ButtonOf(KeyCommand command) {
  switch (command) {
    case KeyCommand::EraseLeft: return cursorButtons_[0];
    case KeyCommand::MoveLeft: return cursorButtons_[1];
    case KeyCommand::MoveRight: return cursorButtons_[2];
    case KeyCommand::EraseRight: return cursorButtons_[3];
    case KeyCommand::ToStart: return Button(Control::StartOver);
    case KeyCommand::ToEnd: return Button(Control::ToEnd);
    default: return nullptr;
  }
}

}  // namespace trillomat
