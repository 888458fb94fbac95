// What screen readers are told of those parts of the windows that the toolkit knows nothing of: the note
// strip, pictures, the message bar, and what the status bar says for a while.
#pragma once

#include <QStatusBar>

namespace trillomat {

/// From now on each of these parts tells what it is. To be called before the first of them is made.
void InstallAccessibleParts();

/// Has screen readers speak what `part`, a message bar, says now.
void Announce(QWidget& part);
/// The same for the message that `bar` shows.
void AnnounceMessage(QStatusBar& bar);

}  // namespace trillomat
