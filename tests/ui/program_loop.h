// The event loop as the program runs it, and whether it ends.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace trillomat {

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

}  // namespace trillomat
