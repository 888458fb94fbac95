// The program ends when its window is closed, whatever stands in front of it then or opens afterwards.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QTimer>

#include "platform/pump_qt.h"
#include "ui/message_box_qt.h"
#include "ui/program_loop.h"
#include "ui/questions.h"

namespace trillomat {
namespace {

/// Ends the program when it is closed, as the main window does.
class Window : public QMainWindow {
 public:
  explicit Window(QtPump& pump) : pump_(pump) {}

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->accept();
    pump_.End();
  }

 private:
  QtPump& pump_;
};

/// Closes the window as soon as something stands in front of it.
class ClosedFromBehind {
 public:
  explicit ClosedFromBehind(QWidget& window) {
    QObject::connect(&timer_, &QTimer::timeout, &window, [&window] {
      if (QApplication::activeModalWidget() != nullptr) window.close();
    });
    timer_.start(20);
  }

 private:
  QTimer timer_;
};

class ClosingTest : public testing::Test {
 protected:
  ClosingTest() { window.show(); }

  QtPump pump;
  Window window{pump};
  ProgramLoop loop;
};

void SayLate() { QtMessageBox().ShowMessage("late", true); }

// An operation that the closing of the window interrupted may have something to say of it.
TEST_F(ClosingTest, EndsTheProgramThoughABoxOpensAfterwards) {
  EXPECT_TRUE(ProgramLoop::Ends(window, [this] {
    window.close();
    SayLate();
    SayLate();
  }));
}

TEST_F(ClosingTest, EndsTheProgramWithABoxInFront) {
  const std::function<void()> boxes[] = {SayLate,
                                         [] {
                                           SayLate();
                                           SayLate();
                                         },
                                         [this] { QtQuestions().AskYesNo(&window, "File Exist", "Really?"); },
                                         [this] {
                                           QtQuestions().AskTrack(&window, {"a", "b"}, 0);
                                         },
                                         [this] { QtQuestions().AskSavePath(&window, {}); }};
  for (const auto& box : boxes) {
    window.show();
    const ClosedFromBehind closed(window);
    EXPECT_TRUE(ProgramLoop::Ends(window, box));
    EXPECT_FALSE(window.isVisible());
  }
}

}  // namespace
}  // namespace trillomat
