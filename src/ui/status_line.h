// The status bar: the format, where the cursor is and how long the melody, the element under the cursor in
// words, and whether the song is saved; and, until the next thing happens, why the last one was refused or
// how far long work has come.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include "composer/strip_times.h"
#include "document/document.h"

namespace trillomat {

class StatusLine : public QObject {
  Q_OBJECT

 public:
  /// `times` are those of `document`.
  StatusLine(QStatusBar& bar, const Document& document, const StripTimes& times);

  /// Shows the parts as the document is now.
  void ShowState();
  /// Screen readers speak the element at the cursor, if it is another than they spoke last.
  void SpeakElement();
  /// Shows `text` in the place of the parts until another is shown; empty shows the parts again.
  void Show(const QString& text);
  /// The same, and screen readers speak it at once.
  void Say(const QString& text);

 private:
  QLabel* NewPart(const char* name, const char* tip, int stretch);
  QString PositionText() const;
  QString ElementText() const;

  QStatusBar& bar_;
  const Document& document_;
  const StripTimes& times_;
  QLabel* format_;
  QLabel* position_;
  QLabel* element_;
  QLabel* state_;
  QString spoken_;  ///< what SpeakElement spoke last
};

}  // namespace trillomat
