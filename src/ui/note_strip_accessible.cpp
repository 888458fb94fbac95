#include "ui/note_strip_accessible.h"

#include "ui/note_strip.h"

namespace trillomat {
namespace {

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* strip = qobject_cast<NoteStrip*>(object);
  return strip == nullptr ? nullptr : new NoteStripAccessible(strip);
}

}  // namespace

NoteStripAccessible::NoteStripAccessible(QWidget* strip) : QAccessibleWidget(strip, QAccessible::Graphic) {}

QString NoteStripAccessible::text(QAccessible::Text which) const {
  const bool shown = which == QAccessible::Description || which == QAccessible::Value;
  return shown ? qobject_cast<NoteStrip*>(object())->Words() : QAccessibleWidget::text(which);
}

void InstallNoteStripAccessible() {
  QAccessible::removeFactory(MakeInterface);
  QAccessible::installFactory(MakeInterface);
}

}  // namespace trillomat
