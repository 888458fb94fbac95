// The program's single-byte text to and from Qt's strings, and captions as the list tables give them.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace trillomat {

QString ToQString(std::string_view codePageText);

/// A character that Windows-1252 lacks becomes "?".
std::string FromQString(const QString& text);

/// Of text that the file layer gives, and of the questions that it asks.
QString FromUtf8Bytes(std::string_view text);

/// The name of member `index` of an indexed group of controls: "cmdTone(3)".
QString IndexedName(const char* group, int index);

}  // namespace trillomat
