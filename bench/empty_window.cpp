// The least program with a window: what the start of the window program is compared with.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QMainWindow window;
  window.resize(1100, 820);
  window.show();
  return QApplication::exec();
}
