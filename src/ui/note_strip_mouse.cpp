// The mouse on the note strip: where it is, what it would do there, and the tooltip there.
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>

#include "composer/element_words.h"
#include "core/codec.h"
#include "playback/element_sound.h"
#include "ui/controls.h"
#include "ui/note_strip.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr int kScrollInterval = 40;  // ms

// "c sharp, octave 4, dotted quarter, 450 ms", and below it the token and the frequency.
QString TipOf(const Element& element, const Document& document) {
  SilentLog silent;
  const std::string token = Encode(element, document.Mode(), kNoTokenDefaults, silent).text;
  QString tip = ToQString(ElementWords(element, document.Info().bpm));
  tip += QStringLiteral("\n") + (token.empty() ? QStringLiteral("Not in this format") : ToQString(token));
  const int32_t hertz = ElementFrequency(element);
  if (hertz > 0) tip += QStringLiteral("   %1 Hz").arg(hertz);
  return tip;
}

}  // namespace

StripPoint NoteStrip::PointAt(const QPointF& at) const {
  const StripGeometry geometry = Geometry();
  const double place = geometry.Place(at.x());
  const double row = geometry.Row(at.y());
  return {at, row, place, layout_.At(place, row, fontMetrics().height() * 0.4)};
}

void NoteStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || event->position().x() < Geometry().keys) return event->ignore();
  mouse_.Press(PointAt(event->position()), event->modifiers().testFlag(Qt::ShiftModifier));
}

void NoteStrip::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) return MoveMouse(event->position());
  ShowShape(PointAt(event->position()));
}

// A selection can be dragged beyond an edge; the strip scrolls then.
void NoteStrip::MoveMouse(const QPointF& at) {
  const bool outside = at.x() < Geometry().keys || at.x() > viewport()->width();
  if (!outside || !mouse_.Selects()) {
    scrolling_.stop();
  } else if (!scrolling_.isActive()) {
    scrolling_.start(kScrollInterval, this);
  }
  mouse_.Move(PointAt(at));
}

void NoteStrip::timerEvent(QTimerEvent* event) {
  if (event->timerId() != scrolling_.timerId()) return QAbstractScrollArea::timerEvent(event);
  const QPoint at = viewport()->mapFromGlobal(QCursor::pos());
  const int beyond =
      at.x() < Geometry().keys ? at.x() - static_cast<int>(Geometry().keys) : at.x() - viewport()->width();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + beyond / 2);
  MoveMouse(at);
}

void NoteStrip::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  scrolling_.stop();
  mouse_.Release();
  Arrange();
}

void NoteStrip::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) mouse_.DoubleClick(PointAt(event->position()));
}

// All other keys are the window's.
void NoteStrip::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(event->key() == Qt::Key_Escape && mouse_.Cancel());
}

void NoteStrip::ShowShape(const StripPoint& point) {
  const bool keys = point.at.x() < Geometry().keys;
  viewport()->setCursor(keys || !composer_.MayEdit() ? Qt::ArrowCursor : mouse_.ShapeAt(point.hit));
}

bool NoteStrip::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  ShowTip(static_cast<QHelpEvent&>(*event).pos());
  return true;
}

void NoteStrip::ShowTip(const QPoint& at) {
  const StripGeometry geometry = Geometry();
  const int32_t index = layout_.IndexAt(geometry.Place(at.x()));
  if (index < 0 || at.x() < geometry.keys) return QToolTip::hideText();
  const double left = geometry.X(layout_.Left(index));
  const QRectF column(left, 0, geometry.X(layout_.Left(index + 1)) - left, geometry.view.height());
  QToolTip::showText(viewport()->mapToGlobal(at), PlainToolTip(TipOf(document_.At(index), document_)),
                     viewport(), column.toAlignedRect());
}

}  // namespace trillomat
