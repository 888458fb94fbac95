#include "ui/strip_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/colours.h"
#include "ui/strip_symbols.h"

namespace trillomat {
namespace {

constexpr double kCursorWidth = 2;
constexpr double kCursorHead = 4;
constexpr double kGap = 1;      // between two tones
constexpr double kRound = 2.5;  // of a tone's corners
constexpr double kThickLine = 2;
constexpr double kHint = 3.5;
constexpr double kBlackRow = 0.06;  // how much darker the rows of black keys are

}  // namespace

// The contrast of the colours is measured on the rows of black keys, where it is least.
StripPainter::StripPainter(QPainter& painter, const StripGeometry& geometry, const QPalette& palette)
    : painter_(painter),
      geometry_(geometry),
      palette_(palette),
      accent_(WithContrast(palette.color(QPalette::Highlight), Shade(kBlackRow), kVisible)),
      line_(WithContrast(Shade(0.35), Shade(kBlackRow), kVisible)),
      paleInk_(WithContrast(Shade(0.4), Shade(kBlackRow), kReadable)),
      ink_(WithContrast(Shade(0.7), Shade(kBlackRow), kReadable)) {}

// Between the ground and what is written on it.
QColor StripPainter::Shade(double share) const {
  return Mix(palette_.color(QPalette::Base), palette_.color(QPalette::Text), share);
}

void StripPainter::Paint(const Document& document, const StripLayout::Shown& shown, const StripState& state) {
  painter_.setRenderHint(QPainter::Antialiasing, false);
  PaintRows();
  PaintSelection(state);
  PaintBars(shown.bars);
  painter_.setRenderHint(QPainter::Antialiasing);
  for (const StripItem& item : shown.items) {
    PaintItem(document.At(item.index), item, item.index == state.playing);
  }
  PaintCursor(state.cursor);
}

void StripPainter::PaintRows() {
  painter_.fillRect(geometry_.view, Shade(0));
  for (int row = geometry_.rows.lowest; row <= geometry_.rows.highest; ++row) {
    const QRectF band(geometry_.view.left(), geometry_.Y(row), geometry_.view.width(), geometry_.rowHeight);
    if (!band.intersects(geometry_.view)) continue;
    if (IsBlackRow(row)) painter_.fillRect(band, Shade(kBlackRow));
    if (row % kRowsPerOctave != 0) continue;
    painter_.setPen(line_);
    painter_.drawLine(band.bottomLeft(), band.bottomRight());
  }
}

void StripPainter::PaintBars(const std::vector<double>& bars) {
  painter_.setPen(line_);
  for (const double bar : bars) {
    const double x = Sharp(geometry_.X(bar));
    painter_.drawLine(QPointF(x, geometry_.view.top()), QPointF(x, geometry_.view.bottom()));
  }
}

// A band with a border, so that not the colour alone tells it.
void StripPainter::PaintSelection(const StripState& state) {
  if (!(state.selectedTo > state.selectedFrom)) return;
  const double left = geometry_.X(state.selectedFrom);
  const QRectF band(left, geometry_.view.top(), geometry_.X(state.selectedTo) - left,
                    geometry_.view.height());
  QColor light = accent_;
  light.setAlphaF(0.25F);
  painter_.setPen(QPen(accent_, kThickLine));
  painter_.setBrush(light);
  painter_.drawRect(band.adjusted(1, 1, -1, -1));
}

void StripPainter::PaintItem(const Element& element, const StripItem& item, bool playing) {
  if (playing) PaintPlaying(item);
  switch (item.kind) {
    case StripKind::Tone: return PaintTone(item, playing);
    case StripKind::UnknownTone: return PaintUnknownTone(item);
    case StripKind::Pause: return PaintPause(item);
    case StripKind::Mark: break;
  }
  PaintSymbol(painter_, Column(item), SymbolOf(element), item.held ? ink_ : paleInk_);
  if (item.held) return;
  painter_.setPen(QPen(Shade(0.8), 1, Qt::DashLine));
  painter_.setBrush(Qt::NoBrush);
  const QRectF column = Column(item);
  const double height = column.width() * 1.2;
  painter_.drawRect(QRectF(column.left(), column.center().y() - height / 2, column.width() - kGap, height));
}

void StripPainter::PaintTone(const StripItem& item, bool playing) {
  const QRectF box = BoxOf(item);
  if (!box.intersects(geometry_.view)) return PaintHint(box);
  const QColor fill = Mix(accent_, palette_.color(QPalette::Base), 0.15);
  const double round = std::min(kRound, box.width() / 2);
  if (item.held) {
    painter_.setPen(QPen(playing ? Shade(1) : Mix(accent_, Shade(1), 0.5), playing ? kThickLine : 1));
    painter_.setBrush(playing ? Mix(accent_, palette_.color(QPalette::HighlightedText), 0.35) : fill);
  } else {
    painter_.setPen(QPen(Shade(1), playing ? kThickLine : 1, Qt::DashLine));
    painter_.setBrush(Shade(0));
  }
  painter_.drawRoundedRect(box, round, round);
  if (item.held) return;
  painter_.setBrush(QBrush(Shade(0.8), Qt::DiagCrossPattern));
  painter_.drawRoundedRect(box, round, round);
}

// An arrow at the edge that a tone is beyond.
void StripPainter::PaintHint(const QRectF& box) {
  const bool above = box.top() < geometry_.view.top();
  const QPointF tip(box.center().x(), above ? geometry_.view.top() + 1 : geometry_.view.bottom() - 1);
  const QPointF down(0, above ? kHint : -kHint);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(line_);
  painter_.drawPolygon(QPolygonF({tip, tip + down - QPointF(kHint, 0), tip + down + QPointF(kHint, 0)}));
}

// It has no row of its own, so it takes all of them.
void StripPainter::PaintUnknownTone(const StripItem& item) {
  const QRectF column = Column(item).adjusted(kGap, 2, -kGap, -2);
  painter_.setPen(QPen(Shade(0.8), 1, Qt::DashLine));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(column, kRound, kRound);
  painter_.drawText(column, Qt::AlignCenter, QStringLiteral("?"));
}

void StripPainter::PaintPause(const StripItem& item) {
  const QRectF column = Column(item);
  const double height = 2 * geometry_.rowHeight;
  const QRectF rest(column.left() + kGap, column.center().y() - height / 2,
                    std::max(column.width() - 2 * kGap, 1.0), height);
  painter_.setPen(QPen(item.held ? line_ : Shade(0.8), 1, item.held ? Qt::SolidLine : Qt::DashLine));
  painter_.setBrush(QBrush(line_, item.held ? Qt::BDiagPattern : Qt::DiagCrossPattern));
  painter_.drawRoundedRect(rest, kRound, kRound);
}

void StripPainter::PaintPlaying(const StripItem& item) {
  QColor light = accent_;
  light.setAlphaF(0.3F);
  painter_.fillRect(Column(item), light);
  painter_.setPen(QPen(Shade(1), kThickLine));
  painter_.drawLine(Column(item).topLeft() + QPointF(1, 1), Column(item).topRight() + QPointF(-1, 1));
}

// A line with a head at both ends, which no bar line has.
void StripPainter::PaintCursor(double place) {
  const double x = Sharp(geometry_.X(place));
  const QRectF& view = geometry_.view;
  const QColor ink = Shade(1);
  painter_.fillRect(QRectF(x - kCursorWidth / 2, view.top(), kCursorWidth, view.height()), ink);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink);
  const QPointF across(kCursorHead, 0);
  const QPointF down(0, kCursorHead);
  const QPointF head(x, view.top());
  const QPointF foot(x, view.bottom());
  painter_.drawPolygon(QPolygonF({head - across, head + across, head + down}));
  painter_.drawPolygon(QPolygonF({foot - across, foot + across, foot - down}));
}

// `x` put between two pixels of the screen, because an edge inside one is blurred.
double StripPainter::Sharp(double x) const { return std::round(x / geometry_.pixel) * geometry_.pixel; }

QRectF StripPainter::Column(const StripItem& item) const {
  const double left = Sharp(geometry_.X(item.left));
  return {left, geometry_.view.top(), Sharp(geometry_.X(item.right)) - left, geometry_.view.height()};
}

// Two tones of the same pitch leave a gap between them.
QRectF StripPainter::BoxOf(const StripItem& item) const {
  const QRectF column = Column(item);
  const double width = std::max(column.width() - 2 * kGap, 1.0);
  return {column.left() + kGap / 2, geometry_.Y(item.row) + 0.5, width, geometry_.rowHeight - 1};
}

// Black keys reach from the back to the middle, and each c has its octave beside it.
void StripPainter::PaintKeys() {
  const QRectF keys(geometry_.view.left(), geometry_.view.top(), geometry_.keys, geometry_.view.height());
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.fillRect(keys, Shade(0));
  for (int row = geometry_.rows.lowest; row <= geometry_.rows.highest; ++row) {
    const QRectF key(keys.left(), geometry_.Y(row), keys.width(), geometry_.rowHeight);
    if (!key.intersects(keys)) continue;
    if (IsBlackRow(row)) painter_.fillRect(key.adjusted(0, 0, -keys.width() * 0.6, 0), Shade(0.6));
    if (row % kRowsPerOctave == 0) PaintOctave(row, key);
  }
  painter_.setPen(line_);
  painter_.drawLine(keys.topRight(), keys.bottomRight());
}

void StripPainter::PaintOctave(int row, const QRectF& key) {
  painter_.setPen(line_);
  painter_.drawLine(key.bottomLeft(), key.bottomRight());
  painter_.setPen(Shade(0.9));
  const double line = painter_.fontMetrics().height();
  const QRectF label(key.left(), key.bottom() - line, key.width() - 3, line);
  if (!geometry_.view.contains(label)) return;
  painter_.drawText(label, Qt::AlignRight | Qt::AlignBottom, QStringLiteral("C%1").arg(row / kRowsPerOctave));
}

void StripPainter::PaintFocus() {
  painter_.setPen(QPen(accent_, kThickLine));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(geometry_.view.adjusted(1, 1, -1, -1));
}

}  // namespace trillomat
