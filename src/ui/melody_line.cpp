#include "ui/melody_line.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOptionFrame>

#include "ui/colours.h"
#include "ui/key_table.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr int kCursorWidth = 3;
constexpr int kMargin = 4;

}  // namespace

MelodyLine::MelodyLine(QWidget* parent)
    : QWidget(parent),
      left_(NewHalf("txtLeft", "Melody up to the cursor")),
      right_(NewHalf("txtRight", "Melody behind the cursor")) {
  left_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addWidget(left_);
  row->addWidget(right_);
}

QLineEdit* MelodyLine::NewHalf(const char* name, const char* spoken) {
  auto* half = new QLineEdit(this);
  half->setObjectName(QLatin1String(name));
  half->setAccessibleName(QLatin1String(spoken));
  half->setToolTip(QStringLiteral("%1 and %2 move the cursor, %3 and %4 erase, %5 plays and stops")
                       .arg(KeyName(KeyCommand::MoveLeft), KeyName(KeyCommand::MoveRight),
                            KeyName(KeyCommand::EraseLeft), KeyName(KeyCommand::EraseRight),
                            KeyName(KeyCommand::PlayOrStop)));
  half->setReadOnly(true);
  half->setFrame(false);
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(half->font().pointSizeF() * 1.15);
  half->setFont(font);
  half->installEventFilter(this);
  return half;
}

void MelodyLine::ShowMelody(const MelodyText& text) {
  left_->setText(ToQString(text.left));
  left_->setCursorPosition(static_cast<int>(left_->text().size()));
  right_->setText(ToQString(text.right));
  right_->setCursorPosition(right_->text().isEmpty() ? 0 : 1);
}

bool MelodyLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::eventFilter(watched, event);
}

// Draws the frame of one text box around both halves, and the cursor between them.
void MelodyLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool focused = left_->hasFocus() || right_->hasFocus();
  const auto seen = [this](QPalette::ColorRole ink, QPalette::ColorRole ground) {
    return WithContrast(palette().color(ink), palette().color(ground), kVisible);
  };
  const QColor accent = seen(QPalette::Highlight, QPalette::Base);
  painter.setPen(QPen(focused ? accent : seen(QPalette::Mid, QPalette::Window), focused ? 2 : 1));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kMargin, kMargin);
  const double gap = (left_->geometry().right() + right_->geometry().left() + 1) / 2.0;
  const QRectF cursor(gap - kCursorWidth / 2.0, left_->geometry().top(), kCursorWidth,
                      left_->geometry().height());
  painter.fillRect(cursor, accent);
}

}  // namespace trillomat
