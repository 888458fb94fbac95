// The program ends when its window is closed, whatever stands in front of it then or opens afterwards.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QTimer>
#include <functional>

#include "platform/pump_qt.h"
#include "ui/message_box_qt.h"
#include "ui/questions.h"

namespace trillomat {
namespace {

/// The program's event loop, as long as it is in scope one that ends with the last window.
class ProgramLoop {
 public:
  ProgramLoop() { QApplication::setQuitOnLastWindowClosed(true); }
  ProgramLoop(const ProgramLoop&) = delete;
  ProgramLoop& operator=(const ProgramLoop&) = delete;
  ~ProgramLoop() { QApplication::setQuitOnLastWindowClosed(false); }

  /// Runs `step` inside the loop. Whether the loop ended by itself.
  static bool Ends(QObject& context, const std::function<void()>& step) {
    constexpr int kPatience = 5000;  // milliseconds
    bool ended = true;
    QTimer watch;
    watch.setSingleShot(true);
    QObject::connect(&watch, &QTimer::timeout, &context, [&ended] {
      ended = false;
      // A loop that would go on waiting for the box is ended with it.
      for (QWidget* window : QApplication::topLevelWidgets()) window->close();
      QCoreApplication::exit(1);
    });
    watch.start(kPatience);
    QTimer begin;
    begin.setSingleShot(true);
    QObject::connect(&begin, &QTimer::timeout, &context, step);
    begin.start(0);
    QApplication::exec();
    return ended;
  }
};

/// As far as the end of the program goes, what the main window is.
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
