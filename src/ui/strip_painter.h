// Draws the note strip: rows of a keyboard, the selection, bar lines, the elements and the cursor. All
// colours come from the palette, and nothing is told by its colour alone.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>

#include "composer/strip_layout.h"

namespace trillomat {

/// Where the strip's places and rows are in its window.
struct StripGeometry {
  QRectF view;           ///< all of the window; its left part is the keyboard
  double keys = 0;       ///< width of the keyboard
  double left = 0;       ///< x of place 0
  double top = 0;        ///< y of the upper edge of the highest row
  double rowHeight = 1;  ///< of a semitone
  double pixel = 1;      ///< size of one of the screen
  RowSpan rows;          ///< all of them, seen or not

  double X(double place) const { return left + place; }
  double Place(double x) const { return x - left; }
  double Y(double row) const { return top + (rows.highest - row) * rowHeight; }
  /// In parts of rows: the middle of row 2 is 2.5.
  double Row(double y) const { return rows.highest + 1 - (y - top) / rowHeight; }
};

/// What is shown beside the elements.
struct StripState {
  double cursor = 0;  ///< a place
  double selectedFrom = 0;
  double selectedTo = 0;  ///< nothing is selected when it is the same
  int32_t playing = -1;   ///< the element that plays
  bool focused = false;
};

class StripPainter {
 public:
  StripPainter(QPainter& painter, const StripGeometry& geometry, const QPalette& palette);

  /// `document` is the one that `shown` was made of.
  void Paint(const Document& document, const StripLayout::Shown& shown, const StripState& state);
  /// The keyboard at the left edge, which hides what is scrolled under it.
  void PaintKeys();
  /// Around all of it.
  void PaintFocus();

 private:
  void PaintRows();
  void PaintOctave(int row, const QRectF& key);
  void PaintBars(const std::vector<double>& bars);
  void PaintSelection(const StripState& state);
  void PaintItem(const Element& element, const StripItem& item, bool playing);
  void PaintTone(const StripItem& item, bool playing);
  void PaintHint(const QRectF& box);
  void PaintUnknownTone(const StripItem& item);
  void PaintPause(const StripItem& item);
  void PaintPlaying(const StripItem& item);
  void PaintCursor(double place);
  QRectF Column(const StripItem& item) const;
  QRectF BoxOf(const StripItem& item) const;
  double Sharp(double x) const;
  QColor Shade(double share) const;

  QPainter& painter_;
  const StripGeometry& geometry_;
  const QPalette& palette_;
  QColor accent_;
  QColor line_;
  QColor paleInk_;  ///< of what the format lacks
  QColor ink_;
};

}  // namespace trillomat
