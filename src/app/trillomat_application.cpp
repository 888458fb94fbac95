#include "app/trillomat_application.h"

#include <QDialog>
#include <QDragLeaveEvent>
#include <QIcon>
#include <exception>

namespace trillomat {

void TrillomatApplication::SetNames() {
  setApplicationName(QStringLiteral("trillomat"));
  setApplicationVersion(QStringLiteral(TRILLOMAT_VERSION));
}

TrillomatApplication::TrillomatApplication(int& argc, char** argv) : QApplication(argc, argv) {
  SetNames();
  setDesktopFileName(QStringLiteral("trillomat"));
}

// The toolkit remembers the widget that a drag is over, even when that is gone with its dialog, and would
// send it the next movement.
void TrillomatApplication::EndDragOver(QObject& receiver) {
  if (qobject_cast<QDialog*>(&receiver) == nullptr) return;
  QDragLeaveEvent leave;
  QApplication::notify(&receiver, &leave);
}

// Nested event loops come through here too, so an exception ends no more than the handler that threw it.
bool TrillomatApplication::notify(QObject* receiver, QEvent* event) {
  try {
    if (event->type() == QEvent::Hide) EndDragOver(*receiver);
    return QApplication::notify(receiver, event);
  } catch (const std::exception& fault) {
    if (onFault) onFault(fault.what());
  } catch (...) {
    if (onFault) onFault("unknown fault");
  }
  return false;
}

}  // namespace trillomat
