// What screen readers are told of those parts of the windows that the toolkit knows nothing of: the note
// strip, pictures, the message bar, and what happens away from where the focus is.
#pragma once

#include <QStatusBar>

namespace trillomat {

/// From now on each of these parts tells screen readers what it is. To be called before the first of them is
/// made; calling it again changes nothing.
void InstallAccessibleParts();

/// Has screen readers speak what a message bar says now.
void Announce(QWidget& messageBar);
/// Has screen readers speak `text` as if `bar` said it.
void Speak(QStatusBar& bar, const QString& text);

}  // namespace trillomat
