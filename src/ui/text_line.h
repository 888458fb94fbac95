// Text boxes of one line: what they take, and how they show it.
#pragma once

#include <QLineEdit>

namespace trillomat {

/// Which characters a text box takes.
enum class Characters { All, OfCodePage };

/// From now on line breaks and control characters that are typed or pasted into `box` become blanks, and with
/// OfCodePage what Windows-1252 lacks is left out. A text too long for the box shows its beginning while it
/// is not edited.
void SetUpTextLine(QLineEdit& box, Characters characters);

/// Sets the text unless it stands there already, because setting it moves the caret.
void ShowText(QLineEdit& box, const QString& text);

}  // namespace trillomat
