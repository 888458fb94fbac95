// The size of the main window, which is kept from one run to the next in a section of its own:
//
//   [Window]  Width Height   in pixels, of the window that is not maximized
//             Maximized      "True" or "False"
#pragma once

#include <QWidget>

#include "settings/settings_draft.h"

namespace trillomat {

/// Gives `window` the size that was kept, or its first one, but none that its screen has no room for: it is
/// maximized then.
void RestoreSize(QWidget& window, SettingsDraft& draft);

/// What `draft` is to write when it is saved.
void PutSize(const QWidget& window, SettingsDraft& draft);

/// Deletes what is kept, once `draft` is saved.
void ForgetSize(SettingsDraft& draft);

}  // namespace trillomat
