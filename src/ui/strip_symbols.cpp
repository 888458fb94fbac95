#include "ui/strip_symbols.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr int kRays = 8;
constexpr double kLine = 1.4;

QRectF SquareIn(const QRectF& column, double share) {
  const double side = column.width() * share;
  return {column.center().x() - side / 2, column.center().y() - side / 2, side, side};
}

// A lamp with rays.
void PaintLight(QPainter& painter, const QRectF& square, bool on) {
  painter.drawEllipse(SquareIn(square, 0.5));
  if (!on) return;
  for (int i = 0; i < kRays; ++i) {
    const double angle = i * 2 * std::numbers::pi / kRays;
    const QPointF direction(std::cos(angle), std::sin(angle));
    painter.drawLine(square.center() + direction * square.width() * 0.37,
                     square.center() + direction * square.width() * 0.5);
  }
}

// A display.
void PaintBacklight(QPainter& painter, const QRectF& square) {
  const double inset = square.width() * 0.12;
  painter.drawRoundedRect(square.adjusted(inset, 0, -inset, 0), inset, inset);
}

// A phone between two wavy lines.
void PaintVibration(QPainter& painter, const QRectF& square) {
  const double width = square.width();
  painter.drawRect(square.adjusted(width * 0.34, width * 0.1, -width * 0.34, -width * 0.1));
  for (const double side : {-1.0, 1.0}) {
    QPolygonF wave;
    for (int i = 0; i <= 4; ++i) {
      const double bend = i % 2 == 0 ? 0.32 : 0.46;
      wave << square.center() + QPointF(side * width * bend, (i - 2) * width * 0.2);
    }
    painter.drawPolyline(wave);
  }
}

// A loudspeaker's wedge, the volume below it.
void PaintVolume(QPainter& painter, const QRectF& square, const QString& text) {
  const double width = square.width();
  const QPolygonF wedge(
      {square.topLeft() + QPointF(0, width * 0.35), square.topLeft() + QPointF(width * 0.3, width * 0.35),
       square.topLeft() + QPointF(width * 0.7, 0), square.topLeft() + QPointF(width * 0.7, width),
       square.topLeft() + QPointF(width * 0.3, width * 0.65), square.topLeft() + QPointF(0, width * 0.65)});
  painter.drawPolygon(wedge);
  const QRectF below(square.left() - width, square.bottom() + 1, 3 * width, painter.fontMetrics().height());
  painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop, text);
}

// As in sheet music: a thick and a thin line, and two dots on the side of what is repeated.
void PaintRepeat(QPainter& painter, const QRectF& column, bool start, const QString& text) {
  const double direction = start ? 1 : -1;
  const double unit = column.width() / 6;
  const double x = column.center().x() - direction * 2 * unit;
  const QColor ink = painter.pen().color();
  painter.fillRect(QRectF(x - unit * 0.6, column.top(), unit * 1.2, column.height()), ink);
  const double thin = x + direction * 1.8 * unit;
  painter.drawLine(QPointF(thin, column.top()), QPointF(thin, column.bottom()));
  for (const double y : {-1.5, 1.5}) {
    painter.drawEllipse(QPointF(thin + direction * 1.6 * unit, column.center().y() + y * unit), unit * 0.7,
                        unit * 0.7);
  }
  if (text.isEmpty()) return;
  const double width = painter.fontMetrics().horizontalAdvance(text) + unit;
  const QRectF count(thin - 0.6 * unit - width, column.top() + 1, width, painter.fontMetrics().height());
  painter.drawText(count, Qt::AlignCenter, text);
}

}  // namespace

void PaintSymbol(QPainter& painter, const QRectF& column, const StripSymbol& symbol, const QColor& ink) {
  const QRectF square = SquareIn(column, 0.72);
  const QString text = ToQString(symbol.text);
  painter.setPen(QPen(ink, kLine));
  painter.setBrush(symbol.on ? QBrush(ink) : QBrush(Qt::NoBrush));
  switch (symbol.sign) {
    case StripSign::Light: PaintLight(painter, square, symbol.on); break;
    case StripSign::Backlight: PaintBacklight(painter, square); break;
    case StripSign::Vibration: PaintVibration(painter, square); break;
    case StripSign::Volume: return PaintVolume(painter, square, text);
    case StripSign::RepeatStart: return PaintRepeat(painter, column, true, {});
    case StripSign::RepeatEnd:
      return PaintRepeat(painter, column, false,
                         text.isEmpty() ? QStringLiteral("\u221E") : text + QStringLiteral("\u00D7"));
    case StripSign::Other: return painter.drawText(column, Qt::AlignCenter, QStringLiteral("?"));
  }
  if (!symbol.on) painter.drawLine(square.bottomLeft(), square.topRight());
}

}  // namespace trillomat
