#include "ui/qt_text.h"

#include "core/code_page.h"

namespace trillomat {

QString ToQString(std::string_view codePageText) { return QString::fromStdString(ToUtf8(codePageText)); }

std::string FromQString(const QString& text) {
  // toUtf8 turns a lone surrogate into "?", so the text is always valid.
  return FromUtf8(text.toStdString()).value_or(std::string());
}

QString FromUtf8Bytes(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString IndexedName(const char* group, int index) {
  return QString::fromLatin1(group) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

}  // namespace trillomat
