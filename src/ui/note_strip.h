// The melody as a piano roll: time from left to right, pitch upwards. It shows the document and what the
// mouse does goes to the composer; nothing of it waits or remembers the melody.
//
//   keyboard | rows of the keyboard, tones, pauses, signs, cursor       <- scrolled both ways
//
// Scrolling, zooming and the keys are in note_strip_view.cpp, the mouse in note_strip_mouse.cpp.
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include "composer/composer.h"
#include "composer/strip_layout.h"
#include "ui/strip_mouse.h"
#include "ui/strip_painter.h"

namespace trillomat {

class NoteStrip final : public QAbstractScrollArea, private DocumentObserver {
  Q_OBJECT

 public:
  NoteStrip(Document& document, Composer& composer, QWidget* parent);
  ~NoteStrip() override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  /// Lights the element at `index`, none for -1, and keeps it in view while the melody plays.
  void ShowPlaying(int32_t index);
  // Zooming goes as far as its limits; the cursor stays where it is seen. Percent are of the usual size.
  void ZoomIn();
  void ZoomOut();
  void ZoomReset();
  int ZoomPercent() const { return qRound(zoom_ * 100); }
  void SetZoomPercent(int percent);

  /// What is shown at the cursor, for screen readers.
  QString Words() const;

  const StripLayout& Layout() const { return layout_; }
  /// Where things are in the viewport.
  StripGeometry Geometry() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  // DocumentObserver
  void DocumentChanged(const ChangedRange& range) override;

  // What is shown.
  void SetZoom(double zoom, double x);
  void Arrange();
  void ArrangeRows();
  double RowsHeight() const;
  void KeepInView(int32_t index);
  void KeepRowInView(int32_t index);
  void CentreRow(double row);
  void CentrePitches();
  void UpdateFrom(double place);
  void UpdateBetween(double from, double to);
  StripState State() const;

  // The mouse.
  StripPoint PointAt(const QPointF& at) const;
  void MoveMouse(const QPointF& at);
  void ShowShape(const StripPoint& point);
  void ShowTip(const QPoint& at);

  Document& document_;
  Composer& composer_;
  StripLayout layout_;
  StripMouse mouse_;
  double zoom_ = 1;
  double rowHeight_ = 1;
  RowSpan rows_;
  double cursorShown_ = 0;  ///< the place of the cursor line as it was painted
  int32_t playing_ = -1;
  QBasicTimer scrolling_;  ///< runs while a selection is dragged beyond an edge
};

}  // namespace trillomat
