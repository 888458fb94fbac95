#include "ui/all_notes_box.h"

#include <QVBoxLayout>

#include "ui/controls.h"

namespace trillomat {

AllNotesBox::AllNotesBox(Composer& composer, QWidget* parent)
    : QGroupBox(QStringLiteral("All notes"), parent), composer_(composer) {
  const auto up = QStringLiteral("Move all notes an octave up");
  const auto down = QStringLiteral("Move all notes an octave down");
  buttons_ = {NewButton(QStringLiteral("cmdScaleDown"), {QStringLiteral("Scale do&wn"), down, down}, this),
              NewButton(QStringLiteral("cmdScaleUP"), {QStringLiteral("Scal&e up"), up, up}, this)};
  connect(buttons_[0], &QPushButton::clicked, this, [this] { composer_.MoveScale(-1); });
  connect(buttons_[1], &QPushButton::clicked, this, [this] { composer_.MoveScale(1); });
  auto* column = new QVBoxLayout(this);
  column->addWidget(buttons_[0]);
  column->addWidget(buttons_[1]);
}

void AllNotesBox::ShowState() {
  for (QPushButton* button : buttons_) button->setEnabled(composer_.MayEdit());
}

}  // namespace trillomat
