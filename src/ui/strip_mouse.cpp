#include "ui/strip_mouse.h"

#include <QApplication>
#include <algorithm>
#include <cmath>
#include <utility>

namespace trillomat {

void StripMouse::Press(const StripPoint& point, bool extend) {
  if (!composer_.MayEdit() || document_.IsEmpty()) return;
  if (extend) return composer_.SelectTo(EndOfSelection(IndexOf(point.hit)));
  action_ = Action::Click;
  pressed_ = point;
}

// The clicked element is part of the selection, on whichever side of the anchor it is.
int32_t StripMouse::EndOfSelection(int32_t index) const {
  return index > document_.Anchor() ? index : index - 1;
}

void StripMouse::Move(const StripPoint& point) {
  if (action_ == Action::Click) {
    const QPointF way = point.at - pressed_.at;
    if (way.manhattanLength() < QApplication::startDragDistance()) return;
    Begin(ActionOf(way));
  }
  switch (action_) {
    case Action::Select: return Select(point.hit);
    case Action::Pitch: return MovePitch(point.row);
    case Action::Length: return MoveEnd(point.place);
    default: return;
  }
}

StripMouse::Action StripMouse::ActionOf(const QPointF& way) const {
  const bool upright = std::abs(way.y()) > std::abs(way.x());
  if (!upright && pressed_.hit.part == StripPart::End) return Action::Length;
  return upright && IsTone(pressed_.hit) ? Action::Pitch : Action::Select;
}

void StripMouse::Begin(Action action) {
  action_ = action;
  changed_ = false;
  selectedBefore_ = document_.Selection();
  if (Edits()) before_ = document_.At(pressed_.hit.index);
}

// The command sounds the tone, and meanwhile events run that can move the mouse and change the melody: what
// was read before it is not used after it.
void StripMouse::MovePitch(double row) {
  const RowSpan rows = RowsOf(LimitsOf(document_.Mode()));
  const int way = static_cast<int>(std::lround(row - pressed_.row));
  const int wanted = std::clamp(RowOf(before_) + way, rows.lowest, rows.highest);
  const int32_t index = pressed_.hit.index;
  const int now = RowOf(document_.At(index));
  if (wanted == now) return;
  own_ = true;
  composer_.MoveTone(index, wanted - now);
  own_ = false;
}

void StripMouse::MoveEnd(double place) {
  const double ticks = TicksOf(before_) + (place - pressed_.place) / layout_.scale.tick;
  const WrittenLength length = NearestLength(LimitsOf(document_.Mode()), ticks);
  const int32_t index = pressed_.hit.index;
  if (length.ticks == TicksOf(document_.At(index))) return;
  own_ = true;
  composer_.SetLength(index, length.duration, length.extra);
  own_ = false;
}

void StripMouse::Select(const StripHit& hit) {
  const int32_t from = IndexOf(pressed_.hit);
  const int32_t to = IndexOf(hit);
  composer_.SelectElements({std::min(from, to), std::max(from, to) + 1});
}

// Behind the end of the melody counts as its last element.
int32_t StripMouse::IndexOf(const StripHit& hit) const {
  return hit.index < 0 ? document_.LastIndex() : hit.index;
}

bool StripMouse::IsTone(const StripHit& hit) const {
  const bool on = hit.part == StripPart::Body || hit.part == StripPart::End;
  return on && RowOf(document_.At(hit.index)) >= 0;
}

void StripMouse::Release() {
  const Action action = std::exchange(action_, Action::None);
  clicks_ = action == Action::Click;
  if (clicks_) return composer_.MoveTo(IndexOf(pressed_.hit));
  if (action != Action::None) composer_.EndDrag();
}

void StripMouse::DoubleClick(const StripPoint& point) {
  action_ = Action::None;
  if (point.hit.index >= 0) composer_.TakeLengthAndOctave(point.hit.index);
}

bool StripMouse::Cancel() {
  const bool edited = Edits() && changed_;
  const Action action = std::exchange(action_, Action::Ended);
  if (action == Action::None) action_ = Action::None;
  if (edited) {
    composer_.EndDrag();
    composer_.Undo();
  }
  if (action == Action::Select) composer_.SelectElements(selectedBefore_);
  return action != Action::None && action != Action::Ended;
}

void StripMouse::Follow(const ChangedRange& range) {
  clicks_ = false;
  if (!range.ElementsChanged() && !range.mode) return;
  if (std::exchange(own_, false)) {
    changed_ = true;
  } else if (action_ != Action::None) {
    action_ = Action::Ended;
  }
}

Qt::CursorShape StripMouse::ShapeAt(const StripHit& hit) const {
  if (hit.part == StripPart::End) return Qt::SizeHorCursor;
  return IsTone(hit) ? Qt::SizeVerCursor : Qt::IBeamCursor;
}

}  // namespace trillomat
