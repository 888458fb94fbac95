// The application object: no exception leaves an event handler unnoticed, and no drag outlives the dialog
// that it is over.
#pragma once

#include <QApplication>
#include <functional>
#include <string_view>

namespace trillomat {

class TrillomatApplication : public QApplication {
 public:
  TrillomatApplication(int& argc, char** argv);

  /// Tells the toolkit what the program is called, and its version.
  static void SetNames();

  /// Called with the text of an exception that came out of an event handler. The program goes on.
  std::function<void(std::string_view what)> onFault;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void EndDragOver(QObject& receiver);
};

}  // namespace trillomat
