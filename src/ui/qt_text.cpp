#include "ui/qt_text.h"

#include <algorithm>
#include <cmath>

#include "core/code_page.h"
#include "core/terminal_text.h"

namespace trillomat {
namespace {

bool IsShown(QChar character) { return !TurnsDirection(character.unicode()) && !BreaksLine(character); }

}  // namespace

QString ToQString(std::string_view codePageText) { return QString::fromStdString(ToUtf8(codePageText)); }

std::string FromQString(const QString& text) {
  // toUtf8 turns a lone surrogate into "?", so the text is always valid.
  return FromUtf8(text.toStdString()).value_or(std::string());
}

QString FromUtf8Bytes(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool BreaksLine(QChar character) {
  return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
         character == QChar::ParagraphSeparator;
}

QString ShownName(std::string_view text) {
  QString shown = FromUtf8Bytes(text);
  for (QChar& character : shown) {
    if (!IsShown(character)) character = QChar::ReplacementCharacter;
  }
  return shown;
}

QString ShownMessage(const QString& text) {
  constexpr qsizetype kLongest = 1000;
  constexpr int kMostLines = 5;
  constexpr int kLongestRun = 30;
  constexpr QChar kBreak(0x200B);
  QString shown;
  int lines = 1;
  int run = 0;
  for (const QChar character : text.size() > kLongest ? text.left(kLongest) + QChar(0x2026) : text) {
    const bool ends = character == '\n' && lines < kMostLines;
    if (ends) ++lines;
    run = ends || character == ' ' ? 0 : run + 1;
    if (run > kLongestRun && !character.isLowSurrogate()) {
      shown += kBreak;
      run = 1;
    }
    shown += ends || IsShown(character) ? character : QChar(QChar::ReplacementCharacter);
  }
  return shown;
}

QString MinutesText(double milliseconds) {
  const auto seconds = std::llround(std::max(milliseconds, 0.0) / 1000);
  return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

}  // namespace trillomat
