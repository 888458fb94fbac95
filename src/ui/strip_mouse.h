// What the mouse does to the melody in the note strip: a click moves the cursor, a drag up or down moves a
// tone, a drag of an end changes a length, any other drag selects. The strip tells it where the pointer is.
// While a melody plays it does nothing.
#pragma once

#include <QPointF>
#include <cstdint>

#include "composer/composer.h"
#include "composer/strip_layout.h"

namespace trillomat {

/// A place of the strip under the pointer.
struct StripPoint {
  QPointF at;        ///< in pixels of the viewport
  double row = 0;    ///< as StripLayout::At counts
  double place = 0;  ///< as StripLayout measures
  StripHit hit;
};

class StripMouse {
 public:
  StripMouse(const Document& document, const StripLayout& layout, Composer& composer)
      : document_(document), layout_(layout), composer_(composer) {}

  /// The button was pressed at `point`; with `extend`, which Shift stands for, that selects up to there.
  void Press(const StripPoint& point, bool extend);
  void Move(const StripPoint& point);
  void Release();
  void DoubleClick(const StripPoint& point);
  /// Takes back what the drag has done so far. False when there is no drag.
  bool Cancel();

  /// To be called after each change of the document: a change of the melody or mode that the drag did not
  /// make itself ends it.
  void Follow(const ChangedRange& range);

  /// A drag that selects is under way.
  bool Selects() const { return action_ == Action::Select; }
  /// A drag that moves a tone or an end is under way, so the rows and the scale have to stay as they are.
  bool Edits() const { return action_ == Action::Pitch || action_ == Action::Length; }
  /// A click or a drag is under way, so the strip must not scroll to the cursor by itself.
  bool HoldsView() const { return clicks_ || action_ != Action::None; }
  /// The shape of the pointer there, which tells what a drag would do.
  Qt::CursorShape ShapeAt(const StripHit& hit) const;

 private:
  enum class Action { None, Click, Select, Pitch, Length, Ended };

  Action ActionOf(const QPointF& way) const;
  void Begin(Action action);
  void MovePitch(double row);
  void MoveEnd(double place);
  void Select(const StripHit& hit);
  bool IsTone(const StripHit& hit) const;
  int32_t IndexOf(const StripHit& hit) const;
  int32_t EndOfSelection(int32_t index) const;

  const Document& document_;
  const StripLayout& layout_;
  Composer& composer_;
  Action action_ = Action::None;
  StripPoint pressed_;
  Element before_;  ///< the dragged element as it was
  ElementRange selectedBefore_;
  bool clicks_ = false;   ///< the next change of the document is that of a click
  bool own_ = false;      ///< the next change of the melody is one that the drag makes
  bool changed_ = false;  ///< the drag has changed the melody
};

}  // namespace trillomat
