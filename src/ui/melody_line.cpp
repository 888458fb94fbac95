#include "ui/melody_line.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <optional>

#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr int kCursorWidth = 3;
constexpr int kMargin = 4;

std::optional<MelodyKey> KeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left: return MelodyKey::Left;
    case Qt::Key_Right: return MelodyKey::Right;
    case Qt::Key_Backspace: return MelodyKey::EraseLeft;
    case Qt::Key_Delete: return MelodyKey::EraseRight;
    case Qt::Key_Space: return MelodyKey::PlayOrStop;
    case Qt::Key_Home: return MelodyKey::ToStart;
    case Qt::Key_End: return MelodyKey::ToEnd;
    default: return std::nullopt;
  }
}

}  // namespace

MelodyLine::MelodyLine(QWidget* parent)
    : QWidget(parent),
      txtLeft_(NewHalf("txtLeft", "Melody up to the cursor")),
      txtRight_(NewHalf("txtRight", "Melody behind the cursor")) {
  txtLeft_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(kCursorWidth + 2);
  row->addWidget(txtLeft_);
  row->addWidget(txtRight_);
}

QLineEdit* MelodyLine::NewHalf(const char* name, const char* spoken) {
  auto* half = new QLineEdit(this);
  half->setObjectName(QLatin1String(name));
  half->setAccessibleName(QLatin1String(spoken));
  half->setToolTip(
      QStringLiteral("Arrow keys move the cursor, Backspace and Delete erase, Space plays and stops"));
  half->setReadOnly(true);
  half->setFrame(false);
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(half->font().pointSizeF() * 1.15);
  half->setFont(font);
  half->installEventFilter(this);
  return half;
}

void MelodyLine::ShowMelody(const MelodyViewText& text) {
  txtLeft_->setText(ToQString(text.txtLeft));
  txtLeft_->setCursorPosition(static_cast<int>(txtLeft_->text().size()));
  txtRight_->setText(ToQString(text.txtRight));
  txtRight_->setCursorPosition(txtRight_->text().isEmpty() ? 0 : 1);
}

bool MelodyLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& press = static_cast<QKeyEvent&>(*event);
  const auto key = KeyOf(press);
  if (!key) return QWidget::eventFilter(watched, event);
  emit KeyPressed(*key, press.isAutoRepeat());
  return true;
}

// Draws the frame of one text box around both halves, and the cursor between them.
void MelodyLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool focused = txtLeft_->hasFocus() || txtRight_->hasFocus();
  const QColor accent = palette().color(QPalette::Highlight);
  painter.setPen(QPen(focused ? accent : palette().color(QPalette::Mid), focused ? 2 : 1));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kMargin, kMargin);
  const QRectF cursor(txtLeft_->geometry().right() + 2, txtLeft_->geometry().top(), kCursorWidth,
                      txtLeft_->geometry().height());
  painter.fillRect(cursor, accent);
}

}  // namespace trillomat
