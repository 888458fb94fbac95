#include "ui/resources.h"

#include <QtGlobal>

// A resource file of a static library has to be named, or the linker leaves it out. The macro wants the
// global namespace.
static void InitResources() { Q_INIT_RESOURCE(ui); }

namespace trillomat {

void LoadResources() { InitResources(); }

QIcon Picture(const QString& name) { return QIcon(QStringLiteral(":/ui/%1." TRILLOMAT_PICTURES).arg(name)); }

}  // namespace trillomat
