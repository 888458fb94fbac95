// The contrast of what the windows draw themselves, measured in the pixels that they paint, in a light and in
// a dark palette. Prints a table of it.
#include <QApplication>
#include <QImage>
#include <QMap>
#include <QScrollBar>
#include <cstdio>

#include "ui/colours.h"
#include "ui/main_window_fixture.h"
#include "ui/palettes.h"

#ifndef _WIN32  // Wine has neither the fonts nor the style

namespace trillomat {
namespace {

constexpr int kScale = 4;  // letters are strokes of several pixels then

QImage Painted(QWidget& widget, const QRect& part) {
  QImage picture(part.size() * kScale, QImage::Format_RGB32);
  picture.setDevicePixelRatio(kScale);
  picture.fill(widget.palette().color(QPalette::Window));
  widget.render(&picture, {}, part);
  return picture;
}

QMap<QRgb, int> Counted(const QImage& picture) {
  QMap<QRgb, int> counted;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counted[picture.pixel(x, y)];
  }
  return counted;
}

struct Measured {
  QColor ink;
  QColor ground;
  double contrast = 1;
};

/// The colour with the most contrast to the commonest one. Colours of a few pixels alone, as smooth edges
/// have, do not count.
Measured MeasuredIn(const QImage& picture) {
  const QMap<QRgb, int> counted = Counted(picture);
  Measured found;
  int most = 0;
  for (auto each = counted.begin(); each != counted.end(); ++each) {
    if (each.value() > most) found.ground = QColor(each.key());
    most = std::max(most, each.value());
  }
  for (auto each = counted.begin(); each != counted.end(); ++each) {
    if (each.value() < kScale * kScale) continue;
    const double contrast = Contrast(QColor(each.key()), found.ground);
    if (contrast <= found.contrast) continue;
    found.contrast = contrast;
    found.ink = QColor(each.key());
  }
  return found;
}

class Contrasts : public InPalette, public MainWindowTest {
 protected:
  Contrasts() {
    window.resize(1400, 1000);
    QTest::qWait(20);
  }
  /// Measures `part` of the widget, or all of it.
  void Measure(const char* what, const QWidget& widget, double least, QRect part = {}) {
    auto& seen = const_cast<QWidget&>(widget);
    const Measured found = MeasuredIn(Painted(seen, part.isNull() ? widget.rect() : part));
    std::printf("%-5s  %-36s %s on %s %6.2f : 1, at least %.1f\n", GetParam(), what,
                found.ink.name().toLatin1().data(), found.ground.name().toLatin1().data(), found.contrast,
                least);
    EXPECT_GE(found.contrast, least) << GetParam() << ": " << what;
  }
  void Read(const char* what, const QWidget& widget, QRect part = {}) {
    Measure(what, widget, kReadable, part);
  }
  void See(const char* what, const QWidget& widget, QRect part = {}) {
    Measure(what, widget, kVisible, part);
  }
  // Parts of the note strip.
  NoteStrip& Strip() const { return Get<NoteStrip>("noteStrip"); }
  double X(int32_t index) const { return Strip().Geometry().X(Strip().Layout().Left(index)); }
  /// The part of an element's column that is `rows` above and below its tone, or the middle of the strip.
  QRect Column(int32_t index, double rows) const {
    const StripGeometry strip = Strip().Geometry();
    const int row = RowOf(document.At(index));
    const double middle = row < 0 ? strip.view.height() / 2 : strip.Y(row - 0.5);
    return QRectF(X(index), middle - rows * strip.rowHeight, X(index + 1) - X(index),
                  2 * rows * strip.rowHeight)
        .toAlignedRect();
  }
};

TEST(Colours, ContrastIsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
  EXPECT_NEAR(Contrast(Qt::white, Qt::red), 4.00, 0.005);
}

TEST_P(Contrasts, OfTheNoteStrip) {
  document.Apply({.inserted = ElementsOf("*4e1 r2 ledon (  c3. *4g1 volV+ @3) r0"), .cursor = 8});
  QTest::qWait(20);
  const QWidget& view = *Strip().viewport();
  const StripGeometry strip = Strip().Geometry();
  const int height = view.height();
  Read("octave beside the keyboard", view, {0, 0, qRound(strip.keys) - 2, height});
  See("black key of the keyboard", view, {0, 0, qRound(strip.keys) / 4, height});
  See("octave line", view, {view.width() - 30, 0, 30, height});
  See("tone", view, Column(0, 1.8));
  See("pause", view, Column(1, 1.4));
  Read("command", view, Column(2, 2));
  Read("repeat with its count", view, {qRound(X(7)), 0, qRound(X(8) - X(7)), height / 4});
  See("cursor", view, {qRound(strip.X(Strip().Layout().CursorPlace())) - 4, height / 3, 8, height / 4});
  const auto bars = Strip().Layout().Between(0, Strip().Layout().Left(9)).bars;
  ASSERT_GT(bars.size(), 1U);
  See("bar line", view, {qRound(strip.X(bars[1])) - 2, 0, 4, qRound(strip.rowHeight)});
  Strip().ShowPlaying(0);
  See("tone that plays", view, Column(0, 1.8));
  Strip().ShowPlaying(-1);
  SetMode(FormatMode::Melody);
  QTest::qWait(20);
  See("tone that the format lacks", view, Column(0, 1.8));
  Read("command that the format lacks", view, Column(2, 2));
  document.Apply({.cursor = 8, .selection = ElementRange{0, 2}});
  See("selection's border", view, {qRound(X(0)) - 3, height / 2, 6, 3});
  See("tone that is selected", view, Column(0, 1.8));
  Strip().setFocus();
  See("focus of the note strip", view, {0, height / 2, 4, 3});
}

TEST_P(Contrasts, OfThePianoAndThePhone) {
  for (const char* name : {"cmdTone(4)", "cmdTone(6)"}) {
    auto& key = dynamic_cast<PianoKey&>(Get<QWidget>(name));
    const QRect letters(4, key.height() * 3 / 5, key.width() - 8, key.height() / 3);
    Read("letters of a key", key, letters);
    key.SetSounding(true);
    Read("letters of a key that sounds", key, letters);
    See("mark of a key that sounds", key, {key.width() / 3, 0, key.width() / 3, key.height() * 4 / 5});
    key.SetSounding(false);
    QTest::mousePress(&key, Qt::LeftButton, Qt::ControlModifier);
    Read("letters of a key that is pressed", key, letters);
    QTest::mouseRelease(&key, Qt::LeftButton, {}, QPoint(-9, -9));
  }
  const auto& second = Get<QWidget>("cmdTone(5)");
  See("edge between two keys", *second.parentWidget(), {second.x() - 3, second.height() - 20, 6, 10});
  auto& phone = Get<QWidget>("ImageMS(0)");
  const int side = phone.width() / 6;
  See("phone, left edge", phone, {0, phone.height() / 2, side, 4});
  See("phone, right edge", phone, {phone.width() - side, phone.height() / 2, side, 4});
  Read("frequency", Get<QWidget>("lblFrequency"));
  Read("unit of the frequency", *Get<QWidget>("lblFrequency").parentWidget(),
       Get<QWidget>("lblFrequency").geometry().translated(Get<QWidget>("lblFrequency").width(), 0));
}

TEST_P(Contrasts, OfTheTextsAndBars) {
  folder.Write("a.imy", Tune("*4e1 r2 *4g1"));
  window.OpenFile(folder / "a.imy", false);
  Press("cmdRight");
  Read("melody text", Get<QWidget>("txtLeft"));
  const QWidget& line = *Get<QWidget>("txtLeft").parentWidget();
  See("cursor of the melody text", line,
      {Get<QWidget>("txtLeft").geometry().right() - 3, line.height() / 3, 18, 9});
  Get<QWidget>("cmdPause").setFocus();
  See("frame of the melody text", line, {line.width() / 4, 0, 40, 3});
  Get<QWidget>("txtRight").setFocus();
  See("frame of the melody text with the focus", line, {line.width() / 4, 0, 40, 3});
  See("arrow", Get<QWidget>("cmdLeft"), Get<QWidget>("cmdLeft").rect().adjusted(8, 6, -8, -6));
  for (const char* part : {"lblFormat", "lblPosition", "lblElement", "lblState"})
    Read(part, Get<QWidget>(part));
  folder.Write("bad.imy", kRefusedTune);
  window.OpenFile(folder / "bad.imy");
  const auto& bar = Get<QWidget>("messageBar");
  Read("message", bar, Get<QWidget>("lblMessage").geometry());
  See("cross of the message bar", bar, Get<QWidget>("messageClose").geometry());
  See("border of the message bar", bar, {20, 0, 40, 3});
  // Pure red is given for what is refused. It is underlined and explained, too.
  auto& tempo = Get<QLineEdit>("txtSongInfo(4)");
  tempo.setText("20000");
  const Measured refused = MeasuredIn(Painted(tempo, tempo.rect().adjusted(4, 4, -4, -4)));
  std::printf("%-5s  %-36s %s on %s %6.2f : 1, a given colour\n", GetParam(), "refused tempo",
              refused.ink.name().toLatin1().data(), refused.ground.name().toLatin1().data(),
              refused.contrast);
  EXPECT_EQ(refused.ink.name(), "#ff0000");
}

// A light that is on is told by more than another hue.
TEST_P(Contrasts, OfTheLightsOfThePhone) {
  const QRect part = Get<QWidget>("ImageMS(0)").rect();
  const auto picture = [&](int index) {
    auto& shown = Get<QWidget>(IndexedName("ImageMS", index));
    shown.resize(part.size());
    return Painted(shown, part);
  };
  const QImage off = picture(0);
  for (const int light : {1, 2}) {
    const QImage on = picture(light);
    int apart = 0;
    for (int y = 0; y < off.height(); ++y) {
      for (int x = 0; x < off.width(); ++x) {
        if (Contrast(off.pixelColor(x, y), on.pixelColor(x, y)) >= kVisible) ++apart;
      }
    }
    std::printf("%-5s  picture %d of the phone: %d pixels are apart by 3 : 1\n", GetParam(), light,
                apart / kScale / kScale);
    EXPECT_GT(apart, (light == 1 ? 500 : 30) * kScale * kScale);
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, Contrasts, testing::Values("light", "dark"),
                         [](const auto& palette) { return std::string(palette.param); });

}  // namespace
}  // namespace trillomat

#endif
