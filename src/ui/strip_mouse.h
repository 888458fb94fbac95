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
  QPointF at;        ///< in the window
  double row = 0;    ///< as StripLayout::At counts
  double place = 0;  ///< as StripLayout measures
  StripHit hit;
};

class StripMouse {
 public:
  StripMouse(const Document& document, const StripLayout& layout, Composer& composer)
      : document_(document), layout_(layout), composer_(composer) {}

  /// `extend` selects up to there, as Shift does.
  void Press(const StripPoint& point, bool extend);
  void Move(const StripPoint& point);
  void Release();
  void DoubleClick(const StripPoint& point);
  /// Takes back what the drag that is under way has done. False when there is none.
  bool Cancel();

  /// To be called after each change of the document: another melody or mode that is not the drag's own doing
  /// ends it.
  void Follow(const ChangedRange& range);

  bool Selects() const { return action_ == Action::Select; }
  /// A tone or an end hangs on the pointer, so rows and places have to stay where they are.
  bool Edits() const { return action_ == Action::Pitch || action_ == Action::Length; }
  /// Under the pointer nothing is to move that it does not move itself.
  bool HoldsView() const { return clicks_ || action_ != Action::None; }
  /// What a drag from there does.
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
  Element before_;  ///< what is dragged, as it was
  ElementRange selectedBefore_;
  bool clicks_ = false;   ///< the next change is that of a click
  bool own_ = false;      ///< the next change of the melody is the drag's
  bool changed_ = false;  ///< the drag has changed the melody
};

}  // namespace trillomat
