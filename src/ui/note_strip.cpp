#include "ui/note_strip.h"

#include <QPaintEvent>
#include <QScrollBar>

#include "composer/strip_words.h"
#include "ui/accessible_parts.h"
#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

constexpr double kReach = 6;  // how far heads of the cursor and borders are drawn beside their place

}  // namespace

NoteStrip::NoteStrip(Document& document, Composer& composer, QWidget* parent)
    : QAbstractScrollArea(parent),
      document_(document),
      composer_(composer),
      layout_(document),
      mouse_(document, layout_, composer) {
  InstallAccessibleParts();  // before NameControl asks for them
  NameControl(*this, QStringLiteral("noteStrip"), {{}, QStringLiteral("Note strip")});
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // rows are not to jump when it gets long
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  document_.AddObserver(*this);
  Arrange();
}

NoteStrip::~NoteStrip() { document_.RemoveObserver(*this); }

QSize NoteStrip::sizeHint() const { return {minimumSizeHint().width(), fontMetrics().height() * 9}; }

QSize NoteStrip::minimumSizeHint() const {
  return {12 * fontMetrics().height(), 7 * fontMetrics().height() / 2};
}

// Everything that is shown follows the change at once; what was painted is repainted only where it differs.
void NoteStrip::DocumentChanged(const ChangedRange& range) {
  const double cursorBefore = cursorShown_;
  const bool held = mouse_.HoldsView();
  layout_.Follow(range);
  mouse_.Follow(range);
  playing_ = std::min(playing_, document_.LastIndex());
  const bool other = range.mode || (range.ElementsChanged() && range.inserted == document_.Size());
  if (range.ElementsChanged() || range.mode) Arrange();
  if (other) CentrePitches();
  cursorShown_ = layout_.CursorPlace();
  if (mouse_.Edits()) KeepRowInView(document_.Cursor());
  if (!held && (range.cursor || range.ElementsChanged())) KeepInView(document_.Cursor());
  if (other || range.selection) return viewport()->update();
  if (range.ElementsChanged()) UpdateFrom(layout_.Left(static_cast<int32_t>(range.at)));
  UpdateBetween(cursorBefore, cursorBefore);
  UpdateBetween(cursorShown_, cursorShown_);
}

QString NoteStrip::Words() const { return ToQString(StripWords(document_)); }

void NoteStrip::ShowPlaying(int32_t index) {
  const int32_t before = std::exchange(playing_, document_.HasElement(index) ? index : -1);
  if (before == playing_) return;
  for (const int32_t changed : {before, playing_}) {
    if (changed >= 0) UpdateBetween(layout_.Left(changed), layout_.Left(changed + 1));
  }
  if (playing_ >= 0 && !composer_.MayEdit()) KeepInView(playing_);
}

void NoteStrip::UpdateFrom(double place) { UpdateBetween(place, Geometry().Place(viewport()->width())); }

// With room on both sides for the heads of a cursor line, or for a thick border.
void NoteStrip::UpdateBetween(double from, double to) {
  const StripGeometry geometry = Geometry();
  const QRectF changed(geometry.X(from), 0, to - from, viewport()->height());
  viewport()->update(changed.adjusted(-kReach, 0, kReach, 0).toAlignedRect());
}

StripState NoteStrip::State() const {
  const ElementRange selected = document_.Selection();
  return {.cursor = layout_.CursorPlace(),
          .selectedFrom = layout_.Left(selected.begin),
          .selectedTo = layout_.Left(selected.end),
          .playing = playing_,
          .focused = hasFocus()};
}

void NoteStrip::paintEvent(QPaintEvent* event) {
  const StripGeometry geometry = Geometry();
  QPainter painter(viewport());
  painter.setClipRegion(event->region());
  const QRectF part(event->rect());
  StripPainter strip(painter, geometry, palette());
  strip.Paint(document_, layout_.Between(geometry.Place(part.left()), geometry.Place(part.right() + 1)),
              State());
  strip.PaintKeys();
  if (hasFocus()) strip.PaintFocus();
}

void NoteStrip::focusInEvent(QFocusEvent* /*event*/) { viewport()->update(); }
void NoteStrip::focusOutEvent(QFocusEvent* /*event*/) { viewport()->update(); }

}  // namespace trillomat
