// The main window's size, and that everything in it can be reached and read at any.
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

class MainWindowLayout : public MainWindowTest {
 protected:
  void Resize(int width, int height) {
    window.setWindowState(Qt::WindowNoState);
    window.resize(width, height);
    QTest::qWait(20);
  }
  /// The named controls, seen in the middle of the window, that are smaller than they must be or lie outside
  /// of what can be scrolled to.
  QString CutOff() {
    const QWidget* content = area.widget();
    QString names;
    for (const auto* control : content->findChildren<QWidget*>(QRegularExpression("^[a-zA-Z]{3}.*"))) {
      if (!control->isVisible() || control->objectName().startsWith("qt_")) continue;
      const QRect place(control->mapTo(content, QPoint()), control->size());
      const QSize least = control->minimumSizeHint();
      const bool small = control->width() < least.width() || control->height() < least.height();
      if (small || !content->rect().contains(place)) names += control->objectName() + ' ';
    }
    return names;
  }
  int ToScroll() { return area.horizontalScrollBar()->maximum() + area.verticalScrollBar()->maximum(); }

  QScrollArea& area = dynamic_cast<QScrollArea&>(*window.centralWidget());
};

// 1024 x 600 and 1920 x 1080 at twice the size, less a title bar, and smaller ones, which are scrolled.
TEST_F(MainWindowLayout, EverythingIsReachedAndNothingCutHoweverSmallTheScreenIs) {
  folder.Write("bad.imy", kRefusedTune);
  Press("cmdInsert(8)");
  using Case = std::tuple<int, int, bool>;
  for (const auto& [width, height, scrolls] :
       {Case{1600, 1000, false}, Case{1024, 576, false}, Case{960, 520, false}, Case{640, 400, true}}) {
    if (scrolls) window.OpenFile(folder / "bad.imy");
    Resize(width, height);
    EXPECT_EQ(CutOff().toStdString(), "") << width;
#ifndef _WIN32  // Wine without a screen has only letters that are half again as wide
    EXPECT_EQ(ToScroll() > 0, scrolls) << width;
#endif
  }
  area.ensureWidgetVisible(&Get<QWidget>("cmdExport"));
  EXPECT_TRUE(area.viewport()->rect().contains(
      Get<QWidget>("cmdExport").mapTo(area.viewport(), Get<QWidget>("cmdExport").rect().center())));
}

TEST_F(MainWindowLayout, ControlsGrowWithTheWindowAsFarAsTheyShould) {
  Resize(1024, 720);
  const QSize phone = Get<QWidget>("ImageMS(0)").size();
  Resize(2560, 1400);
  EXPECT_LE(Get<QWidget>("cmdTone(0)").width(), 90);
  const QSize large = Get<QWidget>("ImageMS(0)").size();
  EXPECT_GT(large.height(), 2 * phone.height());
  EXPECT_NEAR(static_cast<double>(large.width()) / large.height(),
              static_cast<double>(phone.width()) / phone.height(), 0.02);
  folder.Write("a.imy", Tune("c2"));
  SetMode(FormatMode::IMelody);
  EXPECT_GE(List().visualItemRect(List().item(0)).height(), 20);
  const int slider = Get<QWidget>("SliderOctave").width();
  SetMode(FormatMode::Rtttl);
  QCoreApplication::processEvents();
  EXPECT_EQ(Get<QLabel>("lbl(2)").text(), "Only octave 3-6 supported");
  EXPECT_EQ(Get<QWidget>("SliderOctave").width(), slider);
}

TEST_F(MainWindowLayout, TheSizeIsKeptButNeverLargerThanTheScreen) {
  const QSize room = window.screen()->availableSize();
  EXPECT_TRUE(QRect({}, room).contains(QRect({}, window.size())));
  Resize(640, 480);
  window.Unload();
  EXPECT_EQ(settings.values["Window/Width"], "640");
  EXPECT_EQ(MainWindow(ForWindow()).size(), QSize(640, 480));
  settings.values["Window/Width"] = std::to_string(room.width() + 1);
  EXPECT_TRUE(MainWindow(ForWindow()).isMaximized());
  settings.values["Window/Width"] = "-7";
  settings.values["Window/Height"] = "wide";
  const MainWindow odd(ForWindow());
  EXPECT_TRUE(QRect({}, room).contains(QRect({}, odd.size()))) << odd.width();
  EXPECT_GE(odd.width(), 320);
  Trigger("mnuFileCleanUp");
  EXPECT_FALSE(settings.values.contains("Window/Width"));
}

// An application that names itself to the toolkit has that name behind each title.
TEST_F(MainWindowLayout, ATitleIsTheWholeTitle) {
  EXPECT_EQ(window.windowHandle()->title(), "Trillomat");
  EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
}

}  // namespace
}  // namespace trillomat
