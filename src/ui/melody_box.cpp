#include "ui/melody_box.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <functional>

#include "ui/arrow_icon.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

struct CursorButton {
  const char* name;
  const char* caption;
  const char* spoken;
  const char* tip;
  void (Composer::*click)();
};

// The arrows have a picture instead of a caption.
constexpr std::array<CursorButton, 4> kCursorButtons{
    {{"cmdEraseLeft", "E&rase", "Erase the element left of the cursor",
      "Erase the element left of the cursor (Backspace)", &Composer::cmdEraseLeft_Click},
     {"cmdLeft", "", "Move the cursor left", "Move the cursor left (Left arrow)", &Composer::cmdLeft_Click},
     {"cmdRight", "", "Move the cursor right", "Move the cursor right (Right arrow)",
      &Composer::cmdRight_Click},
     {"cmdEraseRight", "Erase", "Erase the element right of the cursor",
      "Erase the element right of the cursor (Delete)", &Composer::cmdEraseRight_Click}}};

struct ControlButton {
  const char* caption;
  const char* spoken;
  const char* tip;
};

// In the order of `Control`.
constexpr std::array<ControlButton, 6> kControlButtons{
    {{"&Clear", "Clear the melody", "Erase the whole melody"},
     {"Start &over", "Start over", "Put the cursor before the first element"},
     {"Pa&use", "Pause playing", "Pause playing, and go on"},
     {"&Stop", "Stop playing", "Stop playing behind the tone that sounds"},
     {"&Play", "Play the melody", "Play the melody from its start"},
     {"To e&nd", "To end", "Put the cursor behind the last element"}}};

}  // namespace

MelodyBox::MelodyBox(Composer& composer, PlayControls& play, const Player& player, QWidget* parent)
    : QGroupBox(QStringLiteral("Melody"), parent),
      composer_(composer),
      play_(play),
      player_(player),
      line_(new MelodyLine(this)) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(line_);
  auto* below = new QHBoxLayout;
  below->addLayout(NewCursorRow());
  below->addStretch();
  below->addLayout(NewControlRow());
  column->addLayout(below);
  connect(line_, &MelodyLine::KeyPressed, this, &MelodyBox::Press);
}

QLayout* MelodyBox::NewCursorRow() {
  auto* row = new QHBoxLayout;
  for (size_t i = 0; i < kCursorButtons.size(); ++i) {
    const CursorButton& made = kCursorButtons.at(i);
    auto* button =
        NewButton(QLatin1String(made.name),
                  {QLatin1String(made.caption), QLatin1String(made.spoken), QLatin1String(made.tip)}, this);
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
    auto* button =
        NewButton(IndexedName("cmdControl", i),
                  {QLatin1String(made.caption), QLatin1String(made.spoken), QLatin1String(made.tip)}, this);
    connect(button, &QPushButton::clicked, this, [this, i] {
      if (i == static_cast<int>(Control::Clear)) emit Clearing();
      play_.cmdControl_Click(i);
    });
    row->addWidget(button);
    controls_.at(static_cast<size_t>(i)) = button;
  }
  return row;
}

void MelodyBox::ShowState() {
  const bool edit = composer_.CanEdit();
  for (QPushButton* button : cursorButtons_) button->setEnabled(edit);
  for (const Control locked : {Control::Clear, Control::StartOver, Control::ToEnd}) {
    controls_.at(static_cast<size_t>(locked))->setEnabled(edit);
  }
  const QString caption = ToQString(composer_.State().playCaption);
  controls_.at(static_cast<size_t>(Control::Play))->setText(QLatin1Char('&') + caption);
}

// A key does what its button does, and nothing while that is disabled. A key that is held down waits
// for the tone that sounds, so that the melody is heard element by element.
void MelodyBox::Press(MelodyKey key, bool repeated) {
  const auto click = [&](QPushButton* button) {
    if (!repeated || !player_.NoteIsSounding()) button->click();
  };
  const auto control = [&](Control which) { click(controls_.at(static_cast<size_t>(which))); };
  switch (key) {
    case MelodyKey::EraseLeft: return click(cursorButtons_[0]);
    case MelodyKey::Left: return click(cursorButtons_[1]);
    case MelodyKey::Right: return click(cursorButtons_[2]);
    case MelodyKey::EraseRight: return click(cursorButtons_[3]);
    case MelodyKey::ToStart: return control(Control::StartOver);
    case MelodyKey::ToEnd: return control(Control::ToEnd);
    case MelodyKey::PlayOrStop:
      if (!repeated) control(play_.IsPlaying() ? Control::Stop : Control::Play);
      return;
  }
}

}  // namespace trillomat
