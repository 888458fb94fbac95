// The size of the main window, which is kept from one run to the next in a section of its own:
//
//   [Window]  Width Height   in pixels, of the window that is not maximized
//             Maximized      "True" or "False"
#pragma once

#include <QWidget>

#include "settings/settings_session.h"

namespace trillomat {

/// Gives `window` the size that was kept, or its first one, but none that its screen has no room for: it is
/// maximized then.
void RestoreSize(QWidget& window, SettingsSession& session);

/// What `session` is to write when it is saved.
void PutSize(const QWidget& window, SettingsSession& session);

/// Deletes what is kept, once `session` is saved.
void ForgetSize(SettingsSession& session);

}  // namespace trillomat
