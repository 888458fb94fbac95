// The note strip on a composer of its own, worked with the mouse and looked at through what it paints.
#include "ui/note_strip.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include "support/composer_fixture.h"

namespace trillomat {
namespace {

class NoteStripTest : public ComposerTest {
 protected:
  NoteStripTest() {
    strip.resize(600, 200);
    strip.show();
  }

  QWidget* View() const { return strip.viewport(); }
  /// The middle of an element's column, at the row of its tone or `rows` above.
  QPoint PlaceOf(int32_t index, double rows = 0) const { return At(index, 0.5, rows); }
  /// Just inside the right end.
  QPoint EndOf(int32_t index) const { return At(index, 1, 0) - QPoint(2, 0); }
  void Press(const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(View(), Qt::LeftButton, modifiers, at);
  }
  void MoveTo(const QPoint& at) {
    QMouseEvent move(QEvent::MouseMove, at, View()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(View(), &move);
  }
  void Release(const QPoint& at) { QTest::mouseRelease(View(), Qt::LeftButton, {}, at); }
  void Click(const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(View(), Qt::LeftButton, modifiers, at);
  }
  void Drag(const QPoint& from, const QPoint& to) {
    Press(from);
    MoveTo((from + to) / 2);
    MoveTo(to);
    Release(to);
  }
  void Wheel(QPoint angle, Qt::KeyboardModifiers modifiers, QPointF at = {300, 50}) {
    QWheelEvent wheel(at, View()->mapToGlobal(at), {}, angle, {}, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(View(), &wheel);
  }
  /// Colours in the column of an element.
  QImage Painted(int32_t index) const {
    const StripGeometry geometry = strip.Geometry();
    const int left = qRound(geometry.X(strip.Layout().Left(index)));
    const int right = qRound(geometry.X(strip.Layout().Left(index + 1)));
    return View()->grab(QRect(left, 0, right - left, View()->height())).toImage();
  }
  double CursorX() const { return strip.Geometry().X(strip.Layout().CursorPlace()); }

 private:
  QPoint At(int32_t index, double share, double rows) const {
    const StripGeometry geometry = strip.Geometry();
    const double left = strip.Layout().Left(index);
    const double x = geometry.X(left + share * (strip.Layout().Left(index + 1) - left));
    const int row = RowOf(document.At(index));
    const double y = row < 0 ? geometry.view.height() / 2 : geometry.Y(row - 0.5 + rows);
    return QPointF(x, y).toPoint();
  }

 public:
  NoteStrip strip{document, composer, nullptr};
};

TEST_F(NoteStripTest, AClickMovesTheCursorAndSounds) {
  settings.playMoving = true;
  Compose("*4c2 ledon *4d2 r2 *4e2", -1);
  Click(PlaceOf(2));
  EXPECT_EQ(Tokens(), "*4c2 ledon *4d2| r2 *4e2");
  EXPECT_EQ(sound.beeps.size(), 1U);
  Click(PlaceOf(1));
  EXPECT_EQ(document.Cursor(), 1);
  Click(PlaceOf(4, 8));
  EXPECT_EQ(document.Cursor(), 4) << "above the tone";
  Click({590, 100});
  EXPECT_EQ(document.Cursor(), 4) << "behind the end";
  Press(PlaceOf(0));
  MoveTo(PlaceOf(0) + QPoint(2, 1));
  Release(PlaceOf(0) + QPoint(2, 1));
  EXPECT_EQ(document.Cursor(), 0) << "a hand that shakes";
  EXPECT_FALSE(composer.Steps().CanUndo());
  Click({3, 100});
  EXPECT_EQ(document.Cursor(), 0) << "on the keyboard";
}

TEST_F(NoteStripTest, ADoubleClickTakesLengthAndOctave) {
  Compose("*4c2 *6d3.", -1);
  QTest::mouseDClick(View(), Qt::LeftButton, {}, PlaceOf(1));
  EXPECT_EQ(composer.State().octave, 6);
  EXPECT_EQ(composer.State().duration, 3);
  EXPECT_EQ(composer.State().durationExtra, 1);
}

TEST_F(NoteStripTest, ADragMovesATone) {
  settings.playComposing = true;
  Compose("*4c2 *4e2", -1);
  Drag(PlaceOf(0), PlaceOf(0, 3));
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4#d2 *4e2");
  EXPECT_FALSE(sound.beeps.empty());
  composer.Undo();
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 *4e2") << "one step";
  EXPECT_FALSE(composer.Steps().CanUndo());
  Drag(PlaceOf(1), PlaceOf(1, -500));
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 *0c2") << "no lower than the mode";
  composer.Undo();
  Compose("*4c2 *4e2", -1);
  const QPoint start = PlaceOf(1);
  Press(start);
  MoveTo(PlaceOf(1, 4));
  EXPECT_EQ(document.At(1), Note("#g"));
  MoveTo(start);
  Release(start);
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 *4e2");
}

TEST_F(NoteStripTest, ADragOfTheEndChangesALength) {
  Compose("*4c2 r2", -1);
  const double beat = strip.Layout().Left(1);
  Drag(EndOf(0), EndOf(0) + QPoint(qRound(beat / 2), 1));
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2. r2");
  Drag(EndOf(1), EndOf(1) - QPoint(qRound(beat / 2), 0));
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2. r3");
  composer.Undo();
  composer.Undo();
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 r2");
  EXPECT_FALSE(composer.Steps().CanUndo());
  composer.SetMode(FormatMode::Melody);
  Drag(EndOf(0), EndOf(0) + QPoint(qRound(beat * 2), 0));
  EXPECT_EQ(document.At(0), Note("c")) << "no longer than the mode";
}

TEST_F(NoteStripTest, DraggingOverTheEmptyPartSelects) {
  Compose("*4c2 *4d2 ledon *4e2 *4f2", 0);
  const auto selected = [this](int32_t begin, int32_t end) {
    return document.Selection() == ElementRange{begin, end};
  };
  Drag(PlaceOf(1, 8), PlaceOf(3, 8));
  EXPECT_TRUE(selected(1, 4));
  Drag(PlaceOf(3, 8), PlaceOf(2));
  EXPECT_TRUE(selected(2, 4));
  Click(PlaceOf(4), Qt::ShiftModifier);
  EXPECT_TRUE(selected(2, 5)) << document.Selection().begin << " " << document.Selection().end;
  Click(PlaceOf(0, 8), Qt::ShiftModifier);
  EXPECT_TRUE(selected(0, 2)) << "the other side of where it began";
  Click(PlaceOf(2));
  EXPECT_TRUE(document.Selection().IsEmpty());
  Click(PlaceOf(3), Qt::ShiftModifier);
  EXPECT_TRUE(selected(3, 4));
  EXPECT_FALSE(composer.Steps().CanUndo());
}

TEST_F(NoteStripTest, EscapeTakesADragBack) {
  Compose("*4c2 *4d2", 0);
  Press(PlaceOf(0));
  MoveTo(PlaceOf(0, 5));
  EXPECT_NE(document.At(0), Note("c"));
  QTest::keyClick(&strip, Qt::Key_Escape);
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 *4d2");
  MoveTo(PlaceOf(0, 7));
  Release(PlaceOf(0, 7));
  EXPECT_EQ(TokensOf(document.Elements(), " "), "*4c2 *4d2") << "until the button is released";
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
  QApplication::sendEvent(&strip, &escape);
  EXPECT_FALSE(escape.isAccepted()) << "the window's, while nothing is dragged";
}

TEST_F(NoteStripTest, AnotherMelodyEndsADrag) {
  Compose("*4c2 *4d2", 0);
  Press(PlaceOf(0));
  MoveTo(PlaceOf(0, 5));
  composer.TypeTone(0);
  const ElementList typed = document.Elements();
  MoveTo(PlaceOf(0, 9));
  Release(PlaceOf(0, 9));
  EXPECT_EQ(document.Elements(), typed);
  Press(PlaceOf(1));
  composer.Clear();
  MoveTo({300, 20});
  Release({300, 20});
  EXPECT_TRUE(document.IsEmpty());
}

// The pump runs while the dragged tone waits to be heard, as the event loop does.
TEST_F(NoteStripTest, MovesThatComeWhileAToneSoundsAreNotLost) {
  settings.playComposing = true;
  player.outputType = OutputType::Wave;
  Compose("*4c2 *4d2", 0);
  Press(PlaceOf(0));
  pump.onPump = [this, to = PlaceOf(0, 6), done = false](int) mutable {
    if (std::exchange(done, true)) return;
    MoveTo(to);
    Release(to);
  };
  MoveTo(PlaceOf(0, 3));
  EXPECT_EQ(document.At(0), Note("#f"));
  EXPECT_FALSE(strip.Layout().At(0, 0, 0).part == StripPart::Behind);
  composer.Undo();
  EXPECT_EQ(document.At(0), Note("c"));
}

TEST_F(NoteStripTest, NothingEditsWhileAMelodyPlays) {
  Compose("*4c2 *4d2 *4e2", -1);
  int pumps = 0;
  pump.onPump = [&](int) {
    if (document.Cursor() != 1 || pumps++ > 0) return;
    Click(PlaceOf(0));
    Click(PlaceOf(2), Qt::ShiftModifier);
    Drag(PlaceOf(0), PlaceOf(0, 5));
    Drag(EndOf(0), EndOf(0) + QPoint(50, 0));
    EXPECT_EQ(Tokens(), "*4c2 *4d2| *4e2");
    EXPECT_TRUE(document.Selection().IsEmpty());
  };
  play.Press(Control::Play);
  EXPECT_GT(pumps, 0);
  EXPECT_EQ(Tokens(), "*4c2 *4d2 *4e2| ");
}

TEST_F(NoteStripTest, TheWheelScrollsAndZooms) {
  std::string many;
  for (int i = 0; i < 100; ++i) many += "*4c2 ";
  Compose(many, -1);
  QScrollBar& bar = *strip.horizontalScrollBar();
  ASSERT_EQ(bar.value(), 0);
  Wheel({0, -120}, {});
  const int once = bar.value();
  EXPECT_GT(once, 0);
  Wheel({-120, 0}, {});
  EXPECT_EQ(bar.value(), 2 * once);
  const int32_t under = strip.Layout().IndexAt(strip.Geometry().Place(300));
  const double width = strip.Layout().Width();
  Wheel({0, 120}, Qt::ControlModifier);
  EXPECT_GT(strip.Layout().Width(), width);
  EXPECT_EQ(strip.Layout().IndexAt(strip.Geometry().Place(300)), under);
  for (int i = 0; i < 50; ++i) Wheel({0, -120}, Qt::ControlModifier);
  EXPECT_GT(strip.Layout().Left(1), 3) << "never so small that a screen holds all of a long melody";
  strip.ZoomReset();
  EXPECT_EQ(strip.Layout().Width(), width);
}

TEST_F(NoteStripTest, CursorAndWhatPlaysAreKeptInView) {
  std::string many = "*4c2 ";
  for (int i = 0; i < 300; ++i) many += i % 50 == 0 ? "*0c2 *8b2 " : "*4c2 ";
  Compose(many, -1);
  const auto inView = [this](int32_t index) {
    const QPoint at = PlaceOf(index);
    return at.x() > strip.Geometry().keys && at.x() < View()->width() && at.y() > 0 &&
           at.y() < View()->height();
  };
  for (const int32_t cursor : {299, 0, 51, 52, 150, 149, 0, -1}) {
    document.Apply({.cursor = cursor});
    EXPECT_TRUE(inView(std::max(cursor, 0))) << cursor;
    EXPECT_GE(CursorX(), strip.Geometry().keys);
    EXPECT_LE(CursorX(), View()->width());
  }
  pump.onPump = [&](int) {
    for (const int32_t playing : {200, 2}) {
      strip.ShowPlaying(playing);
      EXPECT_TRUE(inView(playing)) << playing;
    }
    play.Press(Control::Stop);
  };
  play.Press(Control::Play);
}

TEST_F(NoteStripTest, WhatIsShownCanBeToldApart) {
  Compose("*4c2 *4c2 *4c2 *4c2", 3);
  const QImage plain = Painted(1);
  strip.ShowPlaying(1);
  EXPECT_NE(Painted(1), plain);
  strip.ShowPlaying(-1);
  EXPECT_EQ(Painted(1), plain);
  composer.SelectElements({1, 2});
  EXPECT_NE(Painted(1), plain);
  document.Apply({.cursor = 1});
  EXPECT_NE(Painted(1), plain) << "the cursor";
  document.Apply({.cursor = 3});
  EXPECT_EQ(Painted(1), plain);
  for (const Element& other : {Note("#c"), Note("d"), Note("h"), Rest(), Note("c", 4, 1.0F, 0.3F)}) {
    const Change back = document.Apply({.at = 1, .removed = 1, .inserted = {other}, .cursor = 3});
    EXPECT_NE(Painted(1), plain) << Described(other);
    document.Apply(back);
  }
}

TEST_F(NoteStripTest, AnEmptyMelodyShowsWhereTheFirstToneComes) {
  for (const int octave : {0, 8, 4}) {
    composer.SetOctave(octave);
    Compose("*4c2", 0);
    document.Apply({.removed = 1});
    const StripGeometry geometry = strip.Geometry();
    for (const int row : {octave * kRowsPerOctave, octave * kRowsPerOctave + 11}) {
      EXPECT_TRUE(geometry.Y(row) >= 0 && geometry.Y(row) <= geometry.view.height()) << octave;
    }
  }
}

// In black and white, too.
TEST_F(NoteStripTest, WhatTheModeLacksIsMarked) {
  composer.SetMode(FormatMode::Rtttl);
  Compose("*4c2. *4e2", 1);
  const auto inGrey = [this] { return Painted(0).convertToFormat(QImage::Format_Grayscale8); };
  const QImage held = inGrey();
  document.Apply({.at = 0, .removed = 1, .inserted = {Note("c", 4, 1.5F)}, .cursor = 1});
  ASSERT_EQ(inGrey().size(), held.size());
  EXPECT_NE(inGrey(), held);
}

TEST_F(NoteStripTest, ATooltipNamesTheElement) {
  Compose("*4#c2. ledon", -1);
  const auto tip = [this](const QPoint& at) {
    QHelpEvent help(QEvent::ToolTip, at, View()->mapToGlobal(at));
    QApplication::sendEvent(View(), &help);
    return QToolTip::text();
  };
  const QString tone = tip(PlaceOf(0));
  for (const char* part : {"c sharp, octave 4, dotted quarter, 900 ms", "*4#c2.", "560 Hz"}) {
    EXPECT_TRUE(tone.contains(QLatin1String(part))) << part << " in " << tone.toStdString();
  }
  EXPECT_TRUE(tip(PlaceOf(1)).contains(QStringLiteral("light on")));
  composer.SetMode(FormatMode::Rtttl);
  EXPECT_TRUE(tip(PlaceOf(1)).contains(QStringLiteral("Not in this format")));
}

TEST_F(NoteStripTest, ScreenReadersHearTheCursor) {
  Compose("*4#c2 *4d2", -1);
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&strip);
  ASSERT_NE(heard, nullptr);
  EXPECT_EQ(heard->text(QAccessible::Name), QStringLiteral("Note strip"));
  EXPECT_TRUE(heard->text(QAccessible::Description).startsWith(QStringLiteral("Before the first of 2")));
  EXPECT_TRUE(heard->state().focusable);
  composer.MoveTo(1);
  EXPECT_TRUE(heard->text(QAccessible::Description).startsWith(QStringLiteral("Element 2 of 2: d,")));
}

TEST_F(NoteStripTest, ThePointerTellsWhatADragDoes) {
  Compose("*4c2 r2", -1);
  const auto shape = [this](const QPoint& at) {
    QMouseEvent move(QEvent::MouseMove, at, View()->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(View(), &move);
    return View()->cursor().shape();
  };
  EXPECT_EQ(shape(PlaceOf(0)), Qt::SizeVerCursor);
  EXPECT_EQ(shape(EndOf(0)), Qt::SizeHorCursor);
  EXPECT_EQ(shape(PlaceOf(0, 8)), Qt::IBeamCursor);
  EXPECT_EQ(shape({3, 50}), Qt::ArrowCursor);
}

}  // namespace
}  // namespace trillomat
