#include "ui/qt_text.h"

#include <QStringList>

#include "core/code_page.h"

namespace trillomat {
namespace {

bool IsShown(QChar character) {
  const auto code = character.unicode();
  const bool turns = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return !turns && character.category() != QChar::Other_Control && character != QChar::LineSeparator &&
         character != QChar::ParagraphSeparator;
}

void ReplaceUnshown(QString& text) {
  for (QChar& character : text) {
    if (!IsShown(character)) character = QChar::ReplacementCharacter;
  }
}

}  // namespace

QString ToQString(std::string_view codePageText) { return QString::fromStdString(ToUtf8(codePageText)); }

std::string FromQString(const QString& text) {
  // toUtf8 turns a lone surrogate into "?", so the text is always valid.
  return FromUtf8(text.toStdString()).value_or(std::string());
}

QString FromUtf8Bytes(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString ShownName(std::string_view text) {
  QString shown = FromUtf8Bytes(text);
  ReplaceUnshown(shown);
  return shown;
}

QString ShownMessage(const QString& text) {
  constexpr qsizetype kLongest = 1000;
  constexpr qsizetype kLongestRun = 30;
  constexpr QChar kBreak(0x200B);
  QStringList lines = (text.size() > kLongest ? text.left(kLongest) + QChar(0x2026) : text).split('\n');
  for (QString& line : lines) {
    ReplaceUnshown(line);
    for (qsizetype at = line.size() - line.size() % kLongestRun; at > 0; at -= kLongestRun) {
      if (!line.mid(at - kLongestRun, kLongestRun).contains(' ')) line.insert(at, kBreak);
    }
  }
  return lines.join('\n');
}

QString IndexedName(const char* group, int index) {
  return QString::fromLatin1(group) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

}  // namespace trillomat
