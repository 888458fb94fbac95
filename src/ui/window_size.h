// The size of the main window, which is kept from one run to the next in a section of its own:
//
//   [Window]  Width Height   in pixels, of the window that is not maximized
//             Maximized      "True" or "False"
#pragma once

#include <QWidget>

#include "settings/settings_draft.h"

namespace trillomat {

/// Gives `window` the size that was kept, or at the first start a usual one. Where that is more than
/// its screen has room for, the window is maximized.
void RestoreSize(QWidget& window, SettingsDraft& draft);

/// Puts the size of `window` into `draft`, to be written when that is saved.
void PutSize(const QWidget& window, SettingsDraft& draft);

/// Takes the size out of `draft`, to be deleted when that is saved.
void ForgetSize(SettingsDraft& draft);

}  // namespace trillomat
