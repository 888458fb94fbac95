#include "app/trillomat_application.h"

#include <QIcon>
#include <exception>

namespace trillomat {

TrillomatApplication::TrillomatApplication(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName(QStringLiteral("trillomat"));
  setApplicationVersion(QStringLiteral(TRILLOMAT_VERSION));
  setDesktopFileName(QStringLiteral("trillomat"));
}

// Nested event loops come through here too, so an exception ends no more than the handler that threw it.
bool TrillomatApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& fault) {
    if (onFault) onFault(fault.what());
  } catch (...) {
    if (onFault) onFault("unknown fault");
  }
  return false;
}

}  // namespace trillomat
