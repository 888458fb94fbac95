// The program's texts to and from Qt's strings, and how names, messages and lengths of time are shown.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace trillomat {

/// From Windows-1252.
QString ToQString(std::string_view codePageText);

/// To Windows-1252. A character that Windows-1252 lacks becomes "?".
std::string FromQString(const QString& text);

/// From UTF-8, as the texts of files/ are. Bytes that are no UTF-8 become "\uFFFD".
QString FromUtf8Bytes(std::string_view text);

/// Whether a text of one line cannot hold `character`: line breaks and other control characters.
bool BreaksLine(QChar character);

/// A name or path (UTF-8) as it can be shown in one line: a control character, a line break or one
/// that turns the direction of what follows stands as "\uFFFD", as bytes do that are no UTF-8.
QString ShownName(std::string_view text);

/// A message of the program, which can quote names and texts of any length, as a box or a label can show it:
/// without what ShownName takes out, but with its first line feeds; cut when it is very long; and with places
/// at which a text without blanks can be broken into lines.
QString ShownMessage(const QString& text);

/// A length in minutes and seconds: "1:07". A negative one counts as none.
QString MinutesText(double milliseconds);

}  // namespace trillomat
