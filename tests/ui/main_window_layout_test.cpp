// The main window's size, and that everything in it can be reached and read at any.
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "ui/main_window_fixture.h"
#include "ui/message_box_qt.h"

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
       {Case{1600, 1000, false}, Case{1024, 640, false}, Case{1024, 576, false}, Case{960, 520, false},
        Case{640, 400, true}}) {
    if (height == 576) Trigger("mnuViewStrip");  // who has so little room can do without it
    if (scrolls) window.OpenFile(folder / "bad.imy");
    Resize(width, height);
    EXPECT_TRUE(QTest::qWaitFor([this] { return CutOff().isEmpty(); }, 1000)) << CutOff().toStdString();
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
  EXPECT_GE(List().visualRect(RowAt(0)).height(), 20);
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

#ifndef _WIN32
// Names of folders and files can be markup, hold line breaks, turn the direction of writing, and be long.
TEST_F(MainWindowLayout, NamesAreShownAsPlainTextAndMoveNothing) {
  Resize(1024, 1200);
  const QSize least = area.widget()->minimumSizeHint();
  const int mostMore = 8 * window.fontMetrics().height();  // for the message
  for (const std::string& name : {std::string("<table width=3000 height=3000>"),
                                  std::string("a\nb\r\t\x1B[1m"), std::string("<b>\u202Egpj&x"),
                                  std::string(200, '\n'), std::string(250, 'W'), std::string("\xFF\xFE")}) {
    folder.MakeFolder("in");
    std::filesystem::create_directories(folder / "in" / name);
    const std::filesystem::path file = folder / "in" / name / (name.substr(0, 240) + ".imy");
    std::ofstream(file) << kRefusedTune;
    window.OpenFile(file);
    EXPECT_EQ(List().selectionModel()->selectedIndexes().value(0).data(),
              ShownName(file.filename().string()));
    std::filesystem::remove(file);
    window.OpenFile(file);
    EXPECT_THAT(NoticeText().toStdString(), testing::HasSubstr("there is no file "));
    QTest::qWait(20);
    EXPECT_EQ(area.widget()->minimumSizeHint().width(), least.width()) << name;
    EXPECT_LT(area.widget()->minimumSizeHint().height(), least.height() + mostMore) << name;
    for (const auto* label : window.findChildren<QLabel*>()) {
      EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text())) << name;
    }
    QLabel tip(Get<QLabel>("lblFolder").toolTip());
    tip.setWordWrap(true);
    EXPECT_LT(tip.sizeHint().width() + tip.sizeHint().height(), 1200) << name;
  }
}

TEST_F(MainWindowLayout, MessagesAndQuestionsAreShownAsPlainTextOfBearableSize) {
  QtMessageBox messages;
  QtQuestions questions;
  for (const std::string& text : {std::string("<table width=3000 height=3000>"), std::string(9000, 'W')}) {
    const auto judge = [&text] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->text().left(30).toStdString(), text.substr(0, 30));
      EXPECT_LT(box->width() + box->height(), 1600);
      box->button(box->standardButtons().testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok)
          ->click();
    };
    QTimer soon;
    soon.setSingleShot(true);
    QObject::connect(&soon, &QTimer::timeout, &window, judge);
    soon.start(0);
    messages.ShowMessage(text, false);
    soon.start(0);
    EXPECT_TRUE(questions.AskYesNo(&window, "Trillomat", QString::fromStdString(text)));
  }
}
#endif

// An application that names itself to the toolkit has that name behind each title.
TEST_F(MainWindowLayout, ATitleIsTheWholeTitle) {
  EXPECT_EQ(window.windowHandle()->title(), "Untitled - Trillomat");
  EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
}

// What the format has not says so: in words in its place, or where the pointer rests on it.
TEST_F(MainWindowLayout, WhatDoesNothingInAFormatSaysWhy) {
  using Case = std::tuple<FormatMode, bool, bool>;
  for (const auto& [mode, songInfo, commands] :
       {Case{FormatMode::EMelody, false, false}, Case{FormatMode::Rtttl, true, false},
        Case{FormatMode::Melody, false, false}, Case{FormatMode::IMelody, true, true}}) {
    SetMode(mode);
    EXPECT_EQ(Get<QLabel>("lblNoSongInfo").isVisible(), !songInfo);
    const QString why = "Files of this format hold no phone commands";
    for (const char* control : {"cmdInsert(0)", "cmdInsert(10)", "cboVolume"}) {
      EXPECT_EQ(Get<QWidget>(control).toolTip() == why, !commands) << control;
    }
    for (const auto* control : window.centralWidget()->findChildren<QWidget*>()) {
      const bool disabled = control->isVisible() && !control->isEnabled();
      const bool used = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                        qobject_cast<const QComboBox*>(control) != nullptr ||
                        qobject_cast<const QLineEdit*>(control) != nullptr;
      if (disabled && used && control->objectName().contains('(')) {
        EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
      }
    }
  }
  EXPECT_EQ(Get<QWidget>("txtSongInfo(0)").toolTip(), "Set by the file format");
  EXPECT_EQ(Get<QWidget>("txtSongInfo(2)").toolTip(), "");
  EXPECT_EQ(Get<QWidget>("cmdInsert(0)").toolTip(), "Insert LED on");
}

}  // namespace
}  // namespace trillomat
