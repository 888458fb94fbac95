// Which part of the note strip is seen: zoom, scrolling, and what is kept in view.
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "ui/note_strip.h"

namespace trillomat {
namespace {

// In heights of a line of text.
constexpr double kBeatWidth = 2.6;
constexpr double kMarkWidth = 1.1;    // of a phone command or repeat mark
constexpr double kLowestRow = 0.36;   // what can just be hit
constexpr double kHighestRow = 0.55;  // what still looks well, where the melody does not need it higher
constexpr double kMargin = 0.4;       // between the keyboard and the first element
constexpr double kRoomBehind = 2;     // the last element
constexpr double kEdge = 0.25;        // above the highest row and below the lowest

// A scroll bar counts pixels in whole numbers of 32 bits.
constexpr double kLongestBar = 1 << 30;

// At the smallest zoom a screen shows some thousand elements, which are still painted quickly.
constexpr double kFarthestZoom = 0.15;
constexpr double kNearestZoom = 8;
constexpr double kZoomStep = 1.25;

// Where in the view the element stands after scrolling to it, as a share of the width: its left edge when the
// view moved forwards, its right edge when it moved backwards.
constexpr double kForwardsPlace = 0.15;
constexpr double kBackwardsPlace = 0.7;

constexpr int kFewestRows = 20;
constexpr int kRowsBeside = 4;  // of the highest and the lowest tone

}  // namespace

StripGeometry NoteStrip::Geometry() const {
  const QRectF view(viewport()->rect());
  const double line = fontMetrics().height();
  const double all = RowsHeight();
  const double keys = std::ceil(fontMetrics().horizontalAdvance(QStringLiteral("C8")) + line);
  return {.view = view,
          .keys = keys,
          .left = keys + kMargin * line - horizontalScrollBar()->value(),
          .top = std::max((view.height() - all) / 2, kEdge * line) - verticalScrollBar()->value(),
          .rowHeight = rowHeight_,
          .pixel = 1 / devicePixelRatioF(),
          .rows = rows_};
}

void NoteStrip::ZoomIn() { SetZoom(zoom_ * kZoomStep, Geometry().X(cursorShown_)); }
void NoteStrip::SetZoomPercent(int percent) { SetZoom(percent / 100.0, Geometry().X(cursorShown_)); }
void NoteStrip::ZoomOut() { SetZoom(zoom_ / kZoomStep, Geometry().X(cursorShown_)); }
void NoteStrip::ZoomReset() { SetZoom(1, Geometry().X(cursorShown_)); }

// What is at `x` stays there.
void NoteStrip::SetZoom(double zoom, double x) {
  const double place = std::max(Geometry().Place(x), 0.0);
  const int32_t index = layout_.IndexAt(place);
  const int32_t from = index < 0 ? document_.LastIndex() + 1 : index;
  const double width = layout_.Left(from + 1) - layout_.Left(from);
  const double share = width > 0 ? (place - layout_.Left(from)) / width : 0;
  zoom_ = std::clamp(zoom, kFarthestZoom, kNearestZoom);
  Arrange();
  const double now = layout_.Left(from) + share * (layout_.Left(from + 1) - layout_.Left(from));
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(Geometry().X(now) - x));
  viewport()->update();
}

double NoteStrip::RowsHeight() const { return rows_.Size() * rowHeight_; }

// To be called when the melody, the mode, the size, the zoom or the font has changed.
void NoteStrip::Arrange() {
  const double line = fontMetrics().height();
  layout_.scale = {.tick = kBeatWidth * line * zoom_ / kTicksPerBeat, .mark = kMarkWidth * line};
  const double seen = viewport()->width() - Geometry().keys;
  const double all = layout_.Width() + (kMargin + kRoomBehind) * line;
  const double hidden = std::clamp(all - seen, 0.0, kLongestBar);
  horizontalScrollBar()->setRange(0, static_cast<int>(std::ceil(hidden)));
  horizontalScrollBar()->setPageStep(std::max(static_cast<int>(seen), 1));
  horizontalScrollBar()->setSingleStep(static_cast<int>(kBeatWidth * line));
  if (!mouse_.Edits()) ArrangeRows();
}

// Makes the rows so high that all pitches of the melody are seen at once, within the limits of a row. Where
// all rows of the mode need less than the view, they fill it.
void NoteStrip::ArrangeRows() {
  const double middle = Geometry().Row(viewport()->height() / 2.0);
  const double line = fontMetrics().height();
  const double height = viewport()->height();
  rows_ = layout_.Rows();
  const int wanted = std::max(layout_.Pitches().Size() + kRowsBeside, kFewestRows);
  const double fitting = std::clamp(height / wanted, kLowestRow * line, kHighestRow * line);
  rowHeight_ = std::max(std::floor(std::max(fitting, height / rows_.Size())), 1.0);
  verticalScrollBar()->setRange(0, std::max(static_cast<int>(RowsHeight() + 2 * kEdge * line - height), 0));
  verticalScrollBar()->setPageStep(std::max(static_cast<int>(height), 1));
  verticalScrollBar()->setSingleStep(static_cast<int>(rowHeight_ * 2));
  CentreRow(middle);
}

void NoteStrip::CentreRow(double row) {
  const StripGeometry geometry = Geometry();
  verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                qRound(geometry.Y(row - 1) - geometry.view.height() / 2));
}

// In an empty melody, centres the octave that the first tone will be entered in.
void NoteStrip::CentrePitches() {
  RowSpan pitches = layout_.Pitches();
  const int octave = composer_.State().octave * kRowsPerOctave;
  if (document_.IsEmpty()) pitches = {octave, octave + kRowsPerOctave - 1};
  CentreRow((pitches.lowest + pitches.highest + 1) / 2.0);
}

// Scrolls only when the element is out of view, and then so far that its neighbours are seen, too.
void NoteStrip::KeepInView(int32_t index) {
  const StripGeometry geometry = Geometry();
  const double left = geometry.X(layout_.Left(index)) - geometry.keys;
  const double right = geometry.X(layout_.Left(index + 1)) - geometry.keys;
  const double seen = geometry.view.width() - geometry.keys;
  double way = 0;
  if (right < 0) {
    way = right - seen * kBackwardsPlace;
  } else if (left < 0) {
    way = left;
  } else if (right > seen) {
    way = left - seen * kForwardsPlace;
  }
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(way));
  KeepRowInView(index);
}

void NoteStrip::KeepRowInView(int32_t index) {
  if (!document_.HasElement(index)) return;
  const int row = RowOf(document_.At(index));
  if (row < 0) return;
  const StripGeometry geometry = Geometry();
  const double above = geometry.Y(row + 1);
  const double below = geometry.Y(row - 1) + geometry.rowHeight - geometry.view.height();
  QScrollBar* bar = verticalScrollBar();
  if (above < 0) bar->setValue(bar->value() + static_cast<int>(std::floor(above)));
  if (below > 0) bar->setValue(bar->value() + static_cast<int>(std::ceil(below)));
}

void NoteStrip::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Arrange();
  if (document_.IsEmpty()) CentrePitches();
}

void NoteStrip::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Arrange();
}

// Both directions of a wheel move along the melody; with Shift, up and down.
void NoteStrip::wheelEvent(QWheelEvent* event) {
  const QPoint turned = event->angleDelta();
  const int most = std::abs(turned.x()) > std::abs(turned.y()) ? turned.x() : turned.y();
  const double steps = most / double{QWheelEvent::DefaultDeltasPerStep};
  event->accept();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    return SetZoom(zoom_ * std::pow(kZoomStep, steps), event->position().x());
  }
  QScrollBar* bar =
      event->modifiers().testFlag(Qt::ShiftModifier) ? verticalScrollBar() : horizontalScrollBar();
  const QPoint pixels = event->pixelDelta();
  const int exact = std::abs(pixels.x()) > std::abs(pixels.y()) ? pixels.x() : pixels.y();
  bar->setValue(bar->value() - (exact != 0 ? exact : qRound(steps * bar->singleStep() * 3)));
}

}  // namespace trillomat
